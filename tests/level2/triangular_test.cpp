// x := op(A) * x and the solve op(A) * x = b for triangular A in full, band
// and packed storage, against a dense model.

#include "level2_test.h"

namespace l2test {
namespace {

// op(M) * v for the dense n x n model.
std::vector<zcomplex> apply(const std::vector<zcomplex>& dense, long n, char op, const std::vector<zcomplex>& v)
{
    std::vector<zcomplex> r(static_cast<std::size_t>(n));
    for (long i = 0; i < n; ++i)
        for (long k = 0; k < n; ++k) {
            const zcomplex e = op == 'N' ? dense[i + k * n] : dense[k + i * n];
            r[i] += (op == 'C' ? std::conj(e) : e) * v[k];
        }
    return r;
}

// The product maps x to op(A) x; the solve is given b = op(A) x and must give
// x back. Both are exact in real arithmetic on coarse data (the solve divides
// exact multiples of the diagonal); complex division rounds, so the complex
// solve gets a tolerance. `call` runs the export on (a, x).
template <typename T, typename Call>
::testing::AssertionResult check_triangular(Rng& rng, Matrix<T>& a, bool unit, char op, bool solve, long incx,
                                            Call call)
{
    const long n = a.s.n;
    a.fill(rng, unit ? Meaning::kUnitTriangular : Meaning::kTriangular);
    const std::vector<zcomplex> dense = a.dense(unit ? Meaning::kUnitTriangular : Meaning::kTriangular);
    Vector<T> x(n, incx);
    x.fill(rng);
    // result: what x must hold after the call.
    std::vector<zcomplex> result = x.values();
    const std::vector<zcomplex> image = apply(dense, n, op, result);
    if (solve) {
        for (long i = 0; i < n; ++i) {
            if constexpr (kComplex<T>) x[i] = image[i];
            else x[i] = image[i].real();
        }
    } else {
        result = image;
    }
    const auto a0 = a.buf.snapshot(), x0 = x.buf.snapshot();

    call(a.buf.data(), x.buf.data());

    Expect want(x.buf.size());
    for (long i = 0; i < n; ++i) want[x.index(i)] = result[i];
    if (auto r = unchanged(a.buf, a0, "A"); !r) return r;
    return matches(x.buf, x0, want, solve && kComplex<T> ? 1e-12 : 0.0);
}

template <typename T>
class Level2Triangular : public ::testing::Test {};
using ElementTypes = ::testing::Types<double, zcomplex>;
TYPED_TEST_SUITE(Level2Triangular, ElementTypes);

// dtrmv/dtrsv, dtbmv/dtbsv, dtpmv/dtpsv and their z-forms.
TYPED_TEST(Level2Triangular, ProductAndSolve)
{
    using T = TypeParam;
    Rng rng(31);
    int count = 0;
    // -2 packed, -1 full, else band width; bands of runs around the vector
    // widths, and long strided vectors copied into allocated scratch (not a
    // long complex packed solve: its rounding grows beyond the tolerance).
    std::vector<std::pair<long, long>> sizes = {{1100, 9}};
    if (!kComplex<T>) sizes.emplace_back(1100, -2);
    for (const long n : {0L, 1L, 2L, 3L, 8L, 17L, 40L})
        for (const long k : {-2L, -1L, 0L, 1L, 3L, 8L, 16L, 17L, 50L}) sizes.emplace_back(n, k);
    for (const bool solve : {false, true})
        for (const auto& [n, k] : sizes)
            for (const char ul : {'U', 'L'})
                for (const char op : {'N', 'T', 'C'})
                    for (const char dg : {'U', 'N'})
                        for (const long incx : {1L, 2L, -1L, -3L}) {
                            // The long vectors only strided, on a stored diagonal.
                            if (n > 1000 && (incx != -3 || dg == 'U')) continue;
                            ++count;
                            const char uplo = letter(ul, count % 2 != 0);
                            const char trans = letter(op, count % 3 != 0);
                            const char diag = letter(dg, count % 5 < 2);
                            const bool upper = ul == 'U';
                            const long extra = count % 3;
                            Matrix<T> a(Storage::stored_triangle(n, k, upper, extra));
                            const int in = n, ik = k, lda = a.s.ld, ix = incx;
                            auto call = [&](const T* pa, T* px) {
                                const char *u = &uplo, *t = &trans, *d = &diag;
                                if constexpr (kComplex<T>) {
                                    if (k == -2) (solve ? ztpsv_ : ztpmv_)(u, t, d, &in, pa, px, &ix);
                                    else if (k == -1) (solve ? ztrsv_ : ztrmv_)(u, t, d, &in, pa, &lda, px, &ix);
                                    else (solve ? ztbsv_ : ztbmv_)(u, t, d, &in, &ik, pa, &lda, px, &ix);
                                } else {
                                    if (k == -2) (solve ? dtpsv_ : dtpmv_)(u, t, d, &in, pa, px, &ix);
                                    else if (k == -1) (solve ? dtrsv_ : dtrmv_)(u, t, d, &in, pa, &lda, px, &ix);
                                    else (solve ? dtbsv_ : dtbmv_)(u, t, d, &in, &ik, pa, &lda, px, &ix);
                                }
                            };
                            const auto r = check_triangular(rng, a, dg == 'U', op, solve, incx, call);
                            if (!r) {
                                ADD_FAILURE() << (solve ? "solve " : "product ") << uplo << trans << diag << ' '
                                              << a.s.describe() << " incx " << incx << ": " << r.message();
                                return;
                            }
                        }
}

// dtrmv/dtrsv and ztrmv/ztrsv on sizes around the kernels' blocks of 8, 32
// and 64, several blocks, and sizes from which the product is shared by a
// team (the runs with several threads); lda above n by 0 to 2.
TYPED_TEST(Level2Triangular, FullStorageAcrossBlocks)
{
    using T = TypeParam;
    Rng rng(32);
    int count = 0;
    for (const bool solve : {false, true})
        for (const long n : {31L, 32L, 33L, 63L, 64L, 65L, 95L, 96L, 97L, 127L, 128L, 129L, 200L})
            for (const char ul : {'U', 'L'})
                for (const char op : {'N', 'T', 'C'})
                    for (const char dg : {'U', 'N'})
                        for (const long incx : {1L, 2L, -1L, -3L}) {
                            ++count;
                            const char uplo = ul, trans = op, diag = dg;
                            Matrix<T> a(Storage::triangle(n, ul == 'U', n + count % 3));
                            const int in = n, lda = a.s.ld, ix = incx;
                            auto call = [&](const T* pa, T* px) {
                                const char *u = &uplo, *t = &trans, *d = &diag;
                                if constexpr (kComplex<T>) (solve ? ztrsv_ : ztrmv_)(u, t, d, &in, pa, &lda, px, &ix);
                                else (solve ? dtrsv_ : dtrmv_)(u, t, d, &in, pa, &lda, px, &ix);
                            };
                            const auto r = check_triangular(rng, a, dg == 'U', op, solve, incx, call);
                            if (!r) {
                                ADD_FAILURE() << (solve ? "solve " : "product ") << uplo << trans << diag << ' '
                                              << a.s.describe() << " incx " << incx << ": " << r.message();
                                return;
                            }
                        }
}

}  // namespace
}  // namespace l2test
