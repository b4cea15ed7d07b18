// Rank-1 and rank-2 updates of a general matrix and of the stored triangle
// of a symmetric or Hermitian one, full and packed, against a dense model.

#include "level2_test.h"

namespace l2test {
namespace {

// A := A + alpha * x * op(y)^T, plus op(alpha) * y * op(x)^T for rank 2, on
// the elements the storage holds, op conjugating when `conj`; the symmetric
// rank-1 forms use x for y. A Hermitian diagonal comes out real. `call` runs
// the export on (x, y, a).
template <typename T, typename Call>
::testing::AssertionResult check_update(Rng& rng, Matrix<T>& a, Meaning meaning, long incx, long incy, bool rank2,
                                        bool same_xy, bool conj, zcomplex alpha, Call call)
{
    const long m = a.s.m, n = a.s.n;
    const bool no_alpha = alpha == 0.0;
    a.fill(rng, meaning);
    // With alpha = 0 nothing is read; NaN in x and y would show it.
    Vector<T> x(m, incx), y(n, incy);
    x.fill(rng, no_alpha);
    y.fill(rng, no_alpha);
    // Zero entries: x(1) and y(1) together take a column's skip branch (which
    // still clears a Hermitian diagonal's imaginary part); x(2) alone does not.
    if (!no_alpha && m > 3 && n > 3) {
        x[1] = T(0.0);
        y[1] = T(0.0);
        x[2] = T(0.0);
    }
    const auto a0 = a.buf.snapshot(), x0 = x.buf.snapshot(), y0 = y.buf.snapshot();
    const std::vector<zcomplex> xs = x.values(), ys = same_xy ? xs : y.values();
    const std::vector<zcomplex> old = a.dense(Meaning::kGeneral);
    auto cj = [&](zcomplex v) { return conj ? std::conj(v) : v; };

    call(x.buf.data(), y.buf.data(), a.buf.data());

    Expect want(a.buf.size());
    if (m > 0 && n > 0 && !no_alpha) {
        for (long j = 0; j < n; ++j)
            for (long i = 0; i < m; ++i) {
                if (!a.s.holds(i, j)) continue;
                zcomplex v = alpha * xs[i] * cj(ys[j]);
                if (rank2) v += cj(alpha) * ys[i] * cj(xs[j]);
                zcomplex aij = old[i + j * m];
                if (i == j && meaning == Meaning::kHermitian) {
                    aij = aij.real();
                    v = v.real();
                }
                want[a.s.index(i, j)] = aij + v;
            }
    }
    if (auto r = unchanged(x.buf, x0, "x"); !r) return r;
    if (auto r = unchanged(y.buf, y0, "y"); !r) return r;
    return matches(a.buf, a0, want);
}

template <typename T>
class Level2Update : public ::testing::Test {};
using ElementTypes = ::testing::Types<double, zcomplex>;
TYPED_TEST_SUITE(Level2Update, ElementTypes);

template <typename T>
std::vector<T> alphas()
{
    if constexpr (kComplex<T>) return {0.0, 1.0, -1.0, {0.375, -1.5}};
    else return {0.0, 1.0, -1.0, 0.375};
}

// Rows on either side of the vector loops' unrolled steps (up to 32 doubles);
// columns on either side of the smallest team (128) and of the point where
// eight threads stop taking fewer blocks than threads (256).
const std::vector<std::pair<long, long>> kGerShapes = {{0, 2},  {2, 0},   {1, 1},   {3, 5},   {6, 2},  {17, 16},
                                                       {33, 40}, {65, 3}, {2, 127}, {3, 128}, {1, 257}};

// dger, zgeru, zgerc.
TYPED_TEST(Level2Update, General)
{
    using T = TypeParam;
    Rng rng(21);
    int count = 0;
    for (const bool conj : {false, true}) {
        if (conj && !kComplex<T>) continue;
        for (const auto& [m, n] : kGerShapes)
            for (const auto& [incx, incy] : kIncrements)
                for (const T alpha : alphas<T>()) {
                    ++count;
                    Matrix<T> a(Storage::full(m, n, std::max(m, 1L) + count % 3));
                    const int im = m, in = n, lda = a.s.ld, ix = incx, iy = incy;
                    auto call = [&](const T* px, const T* py, T* pa) {
                        if constexpr (kComplex<T>) {
                            if (conj) zgerc_(&im, &in, &alpha, px, &ix, py, &iy, pa, &lda);
                            else zgeru_(&im, &in, &alpha, px, &ix, py, &iy, pa, &lda);
                        } else {
                            dger_(&im, &in, &alpha, px, &ix, py, &iy, pa, &lda);
                        }
                    };
                    const auto r = check_update(rng, a, Meaning::kGeneral, incx, incy, false, false, conj,
                                                zcomplex(alpha), call);
                    if (!r) {
                        ADD_FAILURE() << (conj ? "conj " : "") << a.s.describe() << " incx " << incx << " incy "
                                      << incy << " alpha " << alpha << ": " << r.message();
                        return;
                    }
                }
    }
}

// dsyr/zher, dspr/zhpr (real alpha), dsyr2/zher2, dspr2/zhpr2.
TYPED_TEST(Level2Update, SymmetricFullAndPacked)
{
    using T = TypeParam;
    const Meaning meaning = kComplex<T> ? Meaning::kHermitian : Meaning::kSymmetric;
    Rng rng(22);
    int count = 0;
    for (const bool rank2 : {false, true})
        for (const bool packed : {false, true})
            for (const long n : {0L, 1L, 2L, 3L, 8L, 17L, 40L})
                for (const char ul : {'U', 'L'})
                    for (const auto& [incx, incy] : kIncrements)
                        for (const T alpha_t : alphas<T>()) {
                            ++count;
                            // The rank-1 forms take a real alpha.
                            const double alpha_r = std::real(zcomplex(alpha_t));
                            const T alpha = rank2 ? alpha_t : T(alpha_r);
                            const char uplo = letter(ul, count % 2 != 0);
                            const bool upper = ul == 'U';
                            Matrix<T> a(packed ? Storage::packed(n, upper)
                                               : Storage::triangle(n, upper, std::max(n, 1L) + count % 3));
                            const int in = n, lda = a.s.ld, ix = incx, iy = incy;
                            auto call = [&](const T* px, const T* py, T* pa) {
                                if constexpr (kComplex<T>) {
                                    if (!rank2 && packed) zhpr_(&uplo, &in, &alpha_r, px, &ix, pa);
                                    if (!rank2 && !packed) zher_(&uplo, &in, &alpha_r, px, &ix, pa, &lda);
                                    if (rank2 && packed) zhpr2_(&uplo, &in, &alpha, px, &ix, py, &iy, pa);
                                    if (rank2 && !packed) zher2_(&uplo, &in, &alpha, px, &ix, py, &iy, pa, &lda);
                                } else {
                                    if (!rank2 && packed) dspr_(&uplo, &in, &alpha_r, px, &ix, pa);
                                    if (!rank2 && !packed) dsyr_(&uplo, &in, &alpha_r, px, &ix, pa, &lda);
                                    if (rank2 && packed) dspr2_(&uplo, &in, &alpha, px, &ix, py, &iy, pa);
                                    if (rank2 && !packed) dsyr2_(&uplo, &in, &alpha, px, &ix, py, &iy, pa, &lda);
                                }
                            };
                            const auto r = check_update(rng, a, meaning, incx, incy, rank2, !rank2, kComplex<T>,
                                                        zcomplex(alpha), call);
                            if (!r) {
                                ADD_FAILURE() << (rank2 ? "rank 2 " : "rank 1 ") << "uplo " << uplo << ' '
                                              << a.s.describe() << " incx " << incx << " incy " << incy << " alpha "
                                              << alpha << ": " << r.message();
                                return;
                            }
                        }
}

// Blocks of columns on several threads give the bits of one column at a
// time: full-precision data, where any change in a column's operations would
// show, and a zero y(j) beside NaN in x.
TYPED_TEST(Level2Update, GeneralColumnBlocksMatchSingleColumns)
{
    using T = TypeParam;
    Rng rng(23);
    const long m = 21, lda = 22, incx = -1, incy = -3;
    const int im = m, ilda = lda, ix = incx, iy = incy, one = 1;
    auto ger = [&](int n, const T* alpha, const T* x, const T* y, T* a) {
        if constexpr (kComplex<T>) zgerc_(&im, &n, alpha, x, &ix, y, &iy, a, &ilda);
        else dger_(&im, &n, alpha, x, &ix, y, &iy, a, &ilda);
    };
    auto full = [&]() -> T {
        if constexpr (kComplex<T>) return rng.zfull();
        else return rng.full();
    };
    for (const long n : {128L, 257L, 1000L}) {
        Vector<T> x(m, incx), y(n, incy);
        Matrix<T> whole(Storage::full(m, n, lda)), single(Storage::full(m, n, lda));
        for (long i = 0; i < m; ++i) x[i] = full();
        for (long j = 0; j < n; ++j) y[j] = full();
        x[4] = nan_value<T>();
        y[n / 2] = T(0.0);
        for (long j = 0; j < n; ++j)
            for (long i = 0; i < m; ++i) whole.at(i, j) = single.at(i, j) = full();
        const T alpha = full();
        const auto before = whole.buf.snapshot();

        ger(static_cast<int>(n), &alpha, x.buf.data(), y.buf.data(), whole.buf.data());
        for (long j = 0; j < n; ++j)
            ger(one, &alpha, x.buf.data(), &y[j], &single.at(0, j));

        const auto got = whole.buf.snapshot(), want = single.buf.snapshot();
        for (std::size_t p = 0; p < got.size(); ++p)
            ASSERT_TRUE(orvtest::same_bits(got[p], want[p])) << "n " << n << " element " << p;
        for (long i = 0; i < m; ++i)
            EXPECT_TRUE(orvtest::same_bits(whole.at(i, n / 2), before[whole.s.index(i, n / 2) + Guarded<T>::kPad]))
                << "n " << n << " skipped column, row " << i;
    }
}

// A zero y(j) (x(j) for the symmetric rank-1 form) skips its column: NaN and
// infinity elsewhere in x reach other columns but not that one.
TYPED_TEST(Level2Update, ZeroEntrySkipsItsColumn)
{
    using T = TypeParam;
    const int n = 3, one = 1;
    const T alpha = 2.0;
    const double alpha_r = 2.0;
    const char uplo = 'U';
    const T x[3] = {nan_value<T>(), T(0.0), T(std::numeric_limits<double>::infinity())};
    const T y[3] = {1.0, 0.0, 1.0};
    // Elements (i + 3j) that turn non-finite; all others keep their bits.
    const std::vector<int> hit_ger = {0, 2, 6, 8}, hit_syr = {0, 6, 7, 8};
    for (const bool ger : {true, false}) {
        Guarded<T> a(9);
        for (int i = 0; i < 9; ++i) a[i] = T(i + 1.0);
        const auto a0 = a.snapshot();
        if constexpr (kComplex<T>) {
            if (ger) zgeru_(&n, &n, &alpha, x, &one, y, &one, a.data(), &n);
            else zher_(&uplo, &n, &alpha_r, x, &one, a.data(), &n);
        } else {
            if (ger) dger_(&n, &n, &alpha, x, &one, y, &one, a.data(), &n);
            else dsyr_(&uplo, &n, &alpha_r, x, &one, a.data(), &n);
        }
        const auto now = a.snapshot();
        const std::vector<int>& hit = ger ? hit_ger : hit_syr;
        for (std::size_t p = 0; p < now.size(); ++p) {
            const long idx = static_cast<long>(p) - static_cast<long>(Guarded<T>::kPad);
            if (std::find(hit.begin(), hit.end(), idx) != hit.end())
                EXPECT_FALSE(std::isfinite(zcomplex(now[p]).real())) << (ger ? "ger" : "syr") << " element " << idx;
            else
                EXPECT_TRUE(orvtest::same_bits(now[p], a0[p])) << (ger ? "ger" : "syr") << " element " << idx;
        }
    }
}

}  // namespace
}  // namespace l2test
