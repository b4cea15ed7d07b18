// Baseline sums of magnitudes. The magnitude of a complex element is
// |re| + |im|, not its modulus. The accumulation orders are fixed.
#include <cmath>

#include "level1/kernels.h"
#include "level1/kernels/asum_sse2.h"

namespace orv::def {

using namespace orv::sse2;

double dasum(const i64* n_, const double* x, const i64* incx_)
{
    const i64 n = *n_, incx = *incx_;
    if (n < 1) return 0.0;
    Acc4 acc;
    if (!unit(incx) || !aligned8(x)) {
        const double* p = first_element(x, n, incx);
        for (i64 i = 0; i < n; ++i, p += incx) acc.add_lane0(std::fabs(*p));
        return acc.total();
    }
    // Contiguous, forwards from the base for incx = -1 as well; one element
    // first when that aligns the rest to 16 bytes.
    i64 i = 0;
    if (!aligned16(x)) {
        acc.add_lane0(std::fabs(x[0]));
        i = 1;
    }
    return asum_contiguous<true>(n, x, i, acc);
}

namespace {

// (|re_a|, |re_b|) + (|im_a|, |im_b|) for the elements a = x[0], b = x[1].
inline __m128d pair_magnitudes(const dcomplex* x)
{
    const __m128d ea = _mm_loadu_pd(parts(x));
    const __m128d eb = _mm_loadu_pd(parts(x + 1));
    return _mm_add_pd(abs(_mm_unpacklo_pd(ea, eb)), abs(_mm_unpackhi_pd(ea, eb)));
}

inline double magnitude(const dcomplex& z) { return std::fabs(z.re) + std::fabs(z.im); }

}  // namespace

double dzasum(const i64* n_, const dcomplex* x, const i64* incx_)
{
    const i64 n = *n_, incx = *incx_;
    if (n < 1) return 0.0;
    double sum = 0.0;
    if (incx != 1) {
        // One element at a time from the first logical element, so that a
        // negative increment sums in logical order.
        const dcomplex* p = first_element(x, n, incx);
        for (i64 i = 0; i < n; ++i, p += incx) sum += magnitude(*p);
        return sum;
    }
    Acc4 acc;
    i64 i = 0;
    for (; n - i >= 8; i += 8) {
        acc.a0 = _mm_add_pd(acc.a0, pair_magnitudes(x + i));
        acc.a1 = _mm_add_pd(acc.a1, pair_magnitudes(x + i + 2));
        acc.a2 = _mm_add_pd(acc.a2, pair_magnitudes(x + i + 4));
        acc.a3 = _mm_add_pd(acc.a3, pair_magnitudes(x + i + 6));
    }
    sum = hsum(_mm_add_pd(_mm_add_pd(acc.a0, acc.a1), _mm_add_pd(acc.a2, acc.a3)));
    // The remaining pairs go to a fresh accumulator whose lane sum is then
    // added to the total in one addition.
    __m128d rest = _mm_setzero_pd();
    for (; n - i >= 2; i += 2) rest = _mm_add_pd(rest, pair_magnitudes(x + i));
    sum = sum + hsum(rest);
    if (i < n) sum = sum + magnitude(x[i]);
    return sum;
}

double dcabs1(const dcomplex* z) { return magnitude(*z); }

}  // namespace orv::def
