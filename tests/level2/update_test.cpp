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

// dsyr/zher, dspr/zhpr (the real part of alpha), dsyr2/zher2, dspr2/zhpr2.
template <typename T>
void symmetric_update(bool rank2, bool packed, char uplo, long n, T alpha, const T* x, long incx, const T* y,
                      long incy, T* a, long lda)
{
    const int in = n, ild = lda, ix = incx, iy = incy;
    const double alpha_r = std::real(zcomplex(alpha));
    if constexpr (kComplex<T>) {
        if (!rank2 && packed) zhpr_(&uplo, &in, &alpha_r, x, &ix, a);
        if (!rank2 && !packed) zher_(&uplo, &in, &alpha_r, x, &ix, a, &ild);
        if (rank2 && packed) zhpr2_(&uplo, &in, &alpha, x, &ix, y, &iy, a);
        if (rank2 && !packed) zher2_(&uplo, &in, &alpha, x, &ix, y, &iy, a, &ild);
    } else {
        if (!rank2 && packed) dspr_(&uplo, &in, &alpha_r, x, &ix, a);
        if (!rank2 && !packed) dsyr_(&uplo, &in, &alpha_r, x, &ix, a, &ild);
        if (rank2 && packed) dspr2_(&uplo, &in, &alpha, x, &ix, y, &iy, a);
        if (rank2 && !packed) dsyr2_(&uplo, &in, &alpha, x, &ix, y, &iy, a, &ild);
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
                            auto call = [&](const T* px, const T* py, T* pa) {
                                symmetric_update(rank2, packed, uplo, n, alpha, px, incx, py, incy, pa, a.s.ld);
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

// The standard loops with their skips: a column whose x(j) (and y(j)) are
// zero is left alone, a Hermitian diagonal set real all the same; every other
// column takes x*t1 (+ y*t2) whole, a NaN times a zero multiplier included.
template <typename T>
Expect skipping_model(const Matrix<T>& a, bool rank2, zcomplex alpha, const std::vector<zcomplex>& x,
                      const std::vector<zcomplex>& y)
{
    constexpr bool herm = kComplex<T>;
    auto cj = [](zcomplex v) { return herm ? std::conj(v) : v; };
    Expect want(a.buf.size());
    for (long j = 0; j < a.s.n; ++j) {
        const zcomplex diag = herm ? zcomplex(a.get(j, j).real()) : a.get(j, j);
        if (x[j] == 0.0 && (!rank2 || y[j] == 0.0)) {
            if (herm) want[a.s.index(j, j)] = diag;
            continue;
        }
        const zcomplex t1 = alpha * cj(rank2 ? y[j] : x[j]), t2 = cj(alpha * x[j]);
        for (long i = 0; i < a.s.n; ++i) {
            if (!a.s.holds(i, j)) continue;
            zcomplex v = x[i] * t1;
            if (rank2) v += y[i] * t2;
            want[a.s.index(i, j)] = i == j ? diag + (herm ? zcomplex(v.real()) : v) : a.get(i, j) + v;
        }
    }
    return want;
}

// Zero multipliers beside NaN: a column with x(j) = 0 (rank 2: and y(j) = 0)
// keeps the row of the NaN finite; with x(j) = 0 alone a rank-2 column still
// takes NaN * 0 from y. Both triangles, full and packed, every increment
// pair; the Hermitian diagonal (stored with a NaN imaginary part) comes out
// real in skipped columns too.
TYPED_TEST(Level2Update, ZeroMultipliersBesideNaN)
{
    using T = TypeParam;
    const long n = 37;
    Rng rng(25);
    for (const bool rank2 : {false, true})
        for (const bool packed : {false, true})
            for (const bool upper : {true, false})
                for (const auto& [incx, incy] : kIncrements) {
                    Matrix<T> a(packed ? Storage::packed(n, upper) : Storage::triangle(n, upper, n + 2));
                    a.fill(rng, kComplex<T> ? Meaning::kHermitian : Meaning::kSymmetric);
                    Vector<T> x(n, incx), y(n, incy);
                    x.fill(rng);
                    y.fill(rng);
                    // Column `skipped` covers row `nan`, and so does `half` in an upper triangle.
                    const long nan = upper ? 11 : 30, skipped = upper ? 25 : 5, half = 20;
                    x[skipped] = y[skipped] = x[half] = T(0.0);
                    (rank2 ? y : x)[nan] = nan_value<T>();
                    const T alpha = alphas<T>().back();
                    // The rank-1 forms take the real part.
                    const zcomplex alpha_m = rank2 ? zcomplex(alpha) : zcomplex(std::real(zcomplex(alpha)));
                    const auto a0 = a.buf.snapshot();
                    const Expect want = skipping_model(a, rank2, alpha_m, x.values(), y.values());
                    symmetric_update(rank2, packed, upper ? 'U' : 'L', n, alpha, x.buf.data(), incx, y.buf.data(),
                                     incy, a.buf.data(), a.s.ld);
                    const auto now = a.buf.snapshot();
                    const long pad = static_cast<long>(Guarded<T>::kPad);
                    for (std::size_t p = 0; p < now.size(); ++p) {
                        const long idx = static_cast<long>(p) - pad;
                        const std::string where = std::string(rank2 ? "rank 2 " : "rank 1 ") + a.s.describe() +
                                                  " incx " + std::to_string(incx) + " incy " +
                                                  std::to_string(incy) + " element " + std::to_string(idx);
                        if (idx < 0 || idx >= static_cast<long>(want.size()) || !want[idx]) {
                            ASSERT_TRUE(orvtest::same_bits(now[p], a0[p])) << where << " changed";
                            continue;
                        }
                        const zcomplex got = zcomplex(now[p]), w = kComplex<T> ? *want[idx] : want[idx]->real();
                        const bool finite = std::isfinite(got.real()) && std::isfinite(got.imag());
                        ASSERT_EQ(finite, std::isfinite(w.real()) && std::isfinite(w.imag())) << where;
                        if (finite) {
                            ASSERT_EQ(got, w) << where;
                        }
                    }
                }
}

// Orders on either side of the one from which dsyr and dsyr2 share their
// columns out (a team where the run allows threads).
TEST(Level2UpdateLarge, OrdersAroundTheTeamThreshold)
{
    Rng rng(26);
    for (const long n : {1499L, 1531L})
        for (const bool rank2 : {false, true})
            for (const char uplo : {'U', 'l'})
                for (const auto& [incx, incy] : {std::pair{1L, 1L}, std::pair{-1L, -3L}}) {
                    Matrix<double> a(Storage::triangle(n, uplo == 'U', n + 2));
                    const double alpha = -0.375;
                    auto call = [&](const double* px, const double* py, double* pa) {
                        symmetric_update(rank2, false, uplo, n, alpha, px, incx, py, incy, pa, a.s.ld);
                    };
                    const auto r = check_update(rng, a, Meaning::kSymmetric, incx, incy, rank2, !rank2, false,
                                                zcomplex(alpha), call);
                    ASSERT_TRUE(r) << (rank2 ? "dsyr2 " : "dsyr ") << uplo << " n " << n << " incx " << incx
                                   << " incy " << incy;
                }
}

}  // namespace
}  // namespace l2test
