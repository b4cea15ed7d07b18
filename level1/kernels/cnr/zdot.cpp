// The reproducible complex dot products: the baseline's contiguous order
// (even elements into one accumulator pair, odd ones into the other) for
// every placement of x and y, with unaligned loads. The baseline takes that
// order only when both arrays are 16-byte aligned, and the strided order
// otherwise; here the result depends only on the values and increments, and
// equals the baseline's for aligned arrays.
#include "level1/kernels.h"
#include "level1/kernels/sse2.h"

namespace orv::cnr {

using namespace orv::sse2;

namespace {

struct ZdotAcc {
    __m128d p = _mm_setzero_pd();
    __m128d q = _mm_setzero_pd();

    void add(const dcomplex* x, const dcomplex* y)
    {
        const __m128d xv = _mm_loadu_pd(parts(x));
        const __m128d yv = _mm_loadu_pd(parts(y));
        p = _mm_add_pd(p, _mm_mul_pd(xv, yv));
        q = _mm_add_pd(q, _mm_mul_pd(xv, swap_lanes(yv)));
    }
};

template <bool Conjugate>
void zdot(dcomplex* result, const i64* n_, const dcomplex* x, const i64* incx_, const dcomplex* y,
          const i64* incy_)
{
    result->re = 0.0;
    result->im = 0.0;
    const i64 n = *n_, incx = *incx_, incy = *incy_;
    if (n < 1) return;
    ZdotAcc a, b;
    if (unit_pair(incx, incy)) {
        i64 i = 0;
        for (; n - i >= 2; i += 2) {
            a.add(x + i, y + i);
            b.add(x + i + 1, y + i + 1);
        }
        if (i < n) a.add(x + i, y + i);
    } else {
        const dcomplex* px = first_element(x, n, incx);
        const dcomplex* py = first_element(y, n, incy);
        for (i64 i = 0; i < n; ++i, px += incx, py += incy) a.add(px, py);
    }
    const __m128d p = _mm_add_pd(a.p, b.p);
    const __m128d q = _mm_add_pd(a.q, b.q);
    const __m128d flip = Conjugate ? _mm_set_pd(-0.0, 0.0) : _mm_set_pd(0.0, -0.0);
    const __m128d sum = _mm_add_pd(_mm_unpacklo_pd(p, q), _mm_xor_pd(_mm_unpackhi_pd(p, q), flip));
    _mm_storeu_pd(parts(result), sum);
}

}  // namespace

void zdotc(dcomplex* result, const i64* n, const dcomplex* x, const i64* incx, const dcomplex* y, const i64* incy)
{
    zdot<true>(result, n, x, incx, y, incy);
}

void zdotu(dcomplex* result, const i64* n, const dcomplex* x, const i64* incx, const dcomplex* y, const i64* incy)
{
    zdot<false>(result, n, x, incx, y, incy);
}

}  // namespace orv::cnr
