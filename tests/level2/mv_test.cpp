// y := alpha * op(A) * x + beta * y for the general, symmetric and Hermitian
// routines in full, band and packed storage, against a dense model.

#include "level2_test.h"

namespace l2test {
namespace {

// One call: op is 'N', 'T' or 'C' for the model; `call` runs the export on
// (a, x, y). Coarse data keep every sum exact, so the check has no tolerance.
template <typename T, typename Call>
::testing::AssertionResult check_mv(Rng& rng, Matrix<T>& a, Meaning meaning, char op, long incx, long incy, T alpha,
                                    T beta, Call call)
{
    const long m = a.s.m, n = a.s.n;
    const long len_x = op == 'N' ? n : m, len_y = op == 'N' ? m : n;
    const bool no_alpha = alpha == T(0.0);
    // With alpha = 0 neither A nor x may be read, with beta = 0 not y.
    a.fill(rng, meaning, no_alpha);
    Vector<T> x(len_x, incx), y(len_y, incy);
    x.fill(rng, no_alpha);
    y.fill(rng, beta == T(0.0));
    const auto a0 = a.buf.snapshot(), x0 = x.buf.snapshot(), y0 = y.buf.snapshot();
    const std::vector<zcomplex> dense = no_alpha ? std::vector<zcomplex>{} : a.dense(meaning);
    const std::vector<zcomplex> xs = x.values(), ys = y.values();

    call(a.buf.data(), x.buf.data(), y.buf.data());

    Expect want(y.buf.size());
    if (m > 0 && n > 0) {
        for (long i = 0; i < len_y; ++i) {
            zcomplex v = beta == T(0.0) ? zcomplex(0.0) : zcomplex(beta) * ys[i];
            if (!no_alpha) {
                zcomplex s = 0.0;
                for (long k = 0; k < len_x; ++k) {
                    const zcomplex e = op == 'N' ? dense[i + k * m] : dense[k + i * m];
                    s += (op == 'C' ? std::conj(e) : e) * xs[k];
                }
                v += zcomplex(alpha) * s;
            }
            want[y.index(i)] = v;
        }
    }
    if (auto r = unchanged(a.buf, a0, "A"); !r) return r;
    if (auto r = unchanged(x.buf, x0, "x"); !r) return r;
    return matches(y.buf, y0, want);
}

template <typename T>
class Level2Mv : public ::testing::Test {};
using ElementTypes = ::testing::Types<double, zcomplex>;
TYPED_TEST_SUITE(Level2Mv, ElementTypes);

// Shapes (m, n): empty either way, tiny, tall, wide, and a few above 32.
const std::vector<std::pair<long, long>> kShapes = {{0, 3}, {3, 0}, {1, 1}, {2, 5}, {5, 2},
                                                    {7, 7}, {16, 9}, {9, 17}, {40, 33}};
// Band widths (kl, ku); -1 stands for full storage (the gemv routines).
const std::vector<std::pair<long, long>> kBands = {{-1, -1}, {0, 0}, {1, 2}, {3, 0}, {0, 4}, {20, 45}};

TYPED_TEST(Level2Mv, GeneralFullAndBand)
{
    using T = TypeParam;
    Rng rng(11);
    int count = 0;
    for (const auto& [m, n] : kShapes)
        for (const auto& [kl, ku] : kBands)
            for (const char op : {'N', 'T', 'C'})
                for (const auto& [incx, incy] : kIncrements)
                    for (const auto& [alpha, beta] : scalar_pairs<T>()) {
                        ++count;
                        const char trans = letter(op, count % 2 != 0);
                        const long extra = count % 3;
                        const bool full = kl < 0;
                        Matrix<T> a(full ? Storage::full(m, n, std::max(m, 1L) + extra)
                                         : Storage::band(m, n, kl, ku, kl + ku + 1 + extra));
                        const int im = m, in = n, ikl = kl, iku = ku, lda = a.s.ld, ix = incx, iy = incy;
                        auto call = [&](const T* pa, const T* px, T* py) {
                            if constexpr (kComplex<T>) {
                                if (full) zgemv_(&trans, &im, &in, &alpha, pa, &lda, px, &ix, &beta, py, &iy);
                                else zgbmv_(&trans, &im, &in, &ikl, &iku, &alpha, pa, &lda, px, &ix, &beta, py, &iy);
                            } else {
                                if (full) dgemv_(&trans, &im, &in, &alpha, pa, &lda, px, &ix, &beta, py, &iy);
                                else dgbmv_(&trans, &im, &in, &ikl, &iku, &alpha, pa, &lda, px, &ix, &beta, py, &iy);
                            }
                        };
                        const auto r = check_mv(rng, a, Meaning::kGeneral, op, incx, incy, alpha, beta, call);
                        if (!r) {
                            ADD_FAILURE() << "trans " << trans << ' ' << a.s.describe() << " incx " << incx
                                          << " incy " << incy << " alpha " << alpha << " beta " << beta << ": "
                                          << r.message();
                            return;
                        }
                    }
}

// The general product alone, on shapes at the edges of the kernels' blocks
// (columns in 8/4/1 and 4/1, rows in vectors of up to 8 and pairs of them,
// strips of 1024 rows, blocks of 512 rows for a strided x) and of the
// thresholds at which the work is shared out: 64 rows or columns, shares of
// 64 (32 complex) per thread, and the long, thin shapes whose partial products
// are summed (10000 by fewer than 101, complex 5000 by fewer than 51).
TYPED_TEST(Level2Mv, GeneralEdgesAndThreadedShapes)
{
    using T = TypeParam;
    const std::vector<std::pair<long, long>> shapes = {
        {17, 13}, {33, 12}, {15, 9}, {1, 17}, {31, 4}, {63, 64}, {64, 63}, {127, 128}, {128, 127},
        {130, 50}, {1000, 2}, {100, 300}, {511, 7}, {513, 5}, {1025, 9}, {1024, 3},
        {kComplex<T> ? 40L : 50L, kComplex<T> ? 5000L : 10000L},
        {kComplex<T> ? 5000L : 10000L, kComplex<T> ? 50L : 100L}};
    Rng rng(13);
    int count = 0;
    for (const auto& [m, n] : shapes)
        for (const char op : {'N', 'T', 'C'})
            for (const auto& [incx, incy] : kIncrements)
                for (std::size_t p = 0; p < scalar_pairs<T>().size(); ++p) {
                    // The long shapes with an exact-zero beta and with general scalars only.
                    if (m * n > 100000 && p != 1 && p != 4) continue;
                    const auto [alpha, beta] = scalar_pairs<T>()[p];
                    ++count;
                    const char trans = letter(op, count % 2 != 0);
                    Matrix<T> a(Storage::full(m, n, m + count % 3));
                    const int im = m, in = n, lda = a.s.ld, ix = incx, iy = incy;
                    auto call = [&](const T* pa, const T* px, T* py) {
                        if constexpr (kComplex<T>) zgemv_(&trans, &im, &in, &alpha, pa, &lda, px, &ix, &beta, py, &iy);
                        else dgemv_(&trans, &im, &in, &alpha, pa, &lda, px, &ix, &beta, py, &iy);
                    };
                    const auto r = check_mv(rng, a, Meaning::kGeneral, op, incx, incy, alpha, beta, call);
                    if (!r) {
                        ADD_FAILURE() << "trans " << trans << ' ' << a.s.describe() << " incx " << incx << " incy "
                                      << incy << " alpha " << alpha << " beta " << beta << ": " << r.message();
                        return;
                    }
                }
}

// The band product where its columns' runs of rows end around the kernels'
// vectors and unrolled pairs of them (7..9, 15..17, 31..33 rows), the band
// cut at the top, at the bottom or both, m != n; vectors taken in place,
// copied one of the two or both, and long strided ones copied into allocated
// scratch. alpha = 0 must not read A or x, beta = 0 not y.
TYPED_TEST(Level2Mv, BandRunsAroundVectorWidths)
{
    using T = TypeParam;
    struct Band {
        long m, n, kl, ku;
    };
    const std::vector<Band> bands = {{40, 30, 3, 4},  {40, 40, 0, 6},  {37, 29, 8, 0},  {50, 45, 7, 7},
                                     {60, 61, 8, 7},  {33, 70, 16, 0}, {80, 50, 15, 16}, {90, 64, 16, 16},
                                     {64, 80, 31, 1}, {20, 9, 30, 40}, {1, 40, 0, 5},   {40, 1, 5, 0},
                                     {1500, 900, 2, 1}};
    const std::vector<std::pair<long, long>> increments = {{1, 1}, {1, -3}, {2, 1}, {-1, -1}};
    T general{0.375};
    if constexpr (kComplex<T>) general = {0.375, -0.5};
    const std::vector<T> scalars = {T{0.0}, T{1.0}, T{-1.0}, general};
    Rng rng(14);
    int count = 0;
    for (const auto& [m, n, kl, ku] : bands)
        for (const char op : {'N', 'T', 'C'})
            for (const auto& [incx, incy] : increments)
                for (const T alpha : scalars)
                    for (const T beta : scalars) {
                        // The long band with general scalars only.
                        if (m > 1000 && (alpha != general || (beta != general && beta != T{0.0}))) continue;
                        ++count;
                        const char trans = letter(op, count % 2 != 0);
                        Matrix<T> a(Storage::band(m, n, kl, ku, kl + ku + 1 + count % 3));
                        const int im = m, in = n, ikl = kl, iku = ku, lda = a.s.ld, ix = incx, iy = incy;
                        auto call = [&](const T* pa, const T* px, T* py) {
                            if constexpr (kComplex<T>)
                                zgbmv_(&trans, &im, &in, &ikl, &iku, &alpha, pa, &lda, px, &ix, &beta, py, &iy);
                            else dgbmv_(&trans, &im, &in, &ikl, &iku, &alpha, pa, &lda, px, &ix, &beta, py, &iy);
                        };
                        const auto r = check_mv(rng, a, Meaning::kGeneral, op, incx, incy, alpha, beta, call);
                        if (!r) {
                            ADD_FAILURE() << "trans " << trans << ' ' << a.s.describe() << " incx " << incx
                                          << " incy " << incy << " alpha " << alpha << " beta " << beta << ": "
                                          << r.message();
                            return;
                        }
                    }
}

// dsymv/zhemv, dsbmv/zhbmv, dspmv/zhpmv: the stored triangle stands for the
// whole symmetric (Hermitian) matrix.
TYPED_TEST(Level2Mv, SymmetricFullBandPacked)
{
    using T = TypeParam;
    const Meaning meaning = kComplex<T> ? Meaning::kHermitian : Meaning::kSymmetric;
    Rng rng(12);
    int count = 0;
    // -2 packed, -1 full, else band width; bands of runs around the vector
    // widths, and long strided vectors copied into allocated scratch.
    std::vector<std::pair<long, long>> sizes = {{600, -2}, {600, 9}};
    for (const long n : {0L, 1L, 2L, 3L, 8L, 17L, 40L})
        for (const long k : {-2L, -1L, 0L, 1L, 3L, 8L, 16L, 17L, 50L}) sizes.emplace_back(n, k);
    for (const auto& [n, k] : sizes)
        for (const char ul : {'U', 'L'})
            for (const auto& [incx, incy] : kIncrements)
                for (const auto& [alpha, beta] : scalar_pairs<T>()) {
                    ++count;
                    const char uplo = letter(ul, count % 2 != 0);
                    const bool upper = ul == 'U';
                    const long extra = count % 3;
                    Matrix<T> a(Storage::stored_triangle(n, k, upper, extra));
                    const int in = n, ik = k, lda = a.s.ld, ix = incx, iy = incy;
                    auto call = [&](const T* pa, const T* px, T* py) {
                        if constexpr (kComplex<T>) {
                            if (k == -2) zhpmv_(&uplo, &in, &alpha, pa, px, &ix, &beta, py, &iy);
                            else if (k == -1) zhemv_(&uplo, &in, &alpha, pa, &lda, px, &ix, &beta, py, &iy);
                            else zhbmv_(&uplo, &in, &ik, &alpha, pa, &lda, px, &ix, &beta, py, &iy);
                        } else {
                            if (k == -2) dspmv_(&uplo, &in, &alpha, pa, px, &ix, &beta, py, &iy);
                            else if (k == -1) dsymv_(&uplo, &in, &alpha, pa, &lda, px, &ix, &beta, py, &iy);
                            else dsbmv_(&uplo, &in, &ik, &alpha, pa, &lda, px, &ix, &beta, py, &iy);
                        }
                    };
                    const auto r = check_mv(rng, a, meaning, 'N', incx, incy, alpha, beta, call);
                    if (!r) {
                        ADD_FAILURE() << "uplo " << uplo << ' ' << a.s.describe() << " incx " << incx << " incy "
                                      << incy << " alpha " << alpha << " beta " << beta << ": " << r.message();
                        return;
                    }
                }
}

// dsymv/zhemv on orders at the edges of the kernels' blocks (columns in
// blocks of 8, 4, 2 and singly, rows in vectors of up to 8 elements and a
// last partial one) and of the threaded product: 144 rows and up, and the
// fewer parts of up to 32 rows a thread (the tests run with 2, 3 and 8).
TYPED_TEST(Level2Mv, SymmetricEdgesAndThreadedShapes)
{
    using T = TypeParam;
    const Meaning meaning = kComplex<T> ? Meaning::kHermitian : Meaning::kSymmetric;
    Rng rng(14);
    int count = 0;
    for (const long n : {4L, 5L, 9L, 11L, 15L, 16L, 19L, 143L, 144L, 161L, 200L, 257L})
        for (const char ul : {'U', 'L'})
            for (const auto& [incx, incy] : kIncrements)
                for (const auto& [alpha, beta] : scalar_pairs<T>()) {
                    ++count;
                    const char uplo = letter(ul, count % 2 != 0);
                    Matrix<T> a(Storage::stored_triangle(n, -1, ul == 'U', count % 3));
                    const int in = n, lda = a.s.ld, ix = incx, iy = incy;
                    auto call = [&](const T* pa, const T* px, T* py) {
                        if constexpr (kComplex<T>) zhemv_(&uplo, &in, &alpha, pa, &lda, px, &ix, &beta, py, &iy);
                        else dsymv_(&uplo, &in, &alpha, pa, &lda, px, &ix, &beta, py, &iy);
                    };
                    const auto r = check_mv(rng, a, meaning, 'N', incx, incy, alpha, beta, call);
                    if (!r) {
                        ADD_FAILURE() << "uplo " << uplo << ' ' << a.s.describe() << " incx " << incx << " incy "
                                      << incy << " alpha " << alpha << " beta " << beta << ": " << r.message();
                        return;
                    }
                }
}

}  // namespace
}  // namespace l2test
