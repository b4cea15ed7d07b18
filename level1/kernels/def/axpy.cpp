// Baseline y := alpha*x + y, real and complex. The product is rounded before
// the addition (no fused multiply-add on this path).
#include "level1/kernels.h"
#include "level1/kernels/sse2.h"

namespace orv::def {

using namespace orv::sse2;

namespace {

// Steps of Width elements while that many remain; y is 16-byte aligned.
template <bool AX, int Width>
i64 axpy_steps(i64 n, __m128d a, const double* x, double* y, i64 i)
{
    for (; n - i >= Width; i += Width)
        for (int k = 0; k < Width; k += 2)
            store<true>(y + i + k, _mm_add_pd(load<true>(y + i + k), _mm_mul_pd(a, load<AX>(x + i + k))));
    return i;
}

}  // namespace

void daxpy(const i64* n_, const double* alpha, const double* x, const i64* incx_, double* y, const i64* incy_)
{
    const i64 n = *n_, incx = *incx_, incy = *incy_;
    const double a = *alpha;
    // Either sign of zero leaves y untouched; a NaN alpha does not compare
    // equal and so reaches every element.
    if (n < 1 || a == 0.0) return;
    const __m128d av = _mm_set1_pd(a);
    if (unit_pair(incx, incy) && aligned8(x) && aligned8(y)) {
        i64 i = 0;
        if (!aligned16(y)) {
            y[0] += a * x[0];
            i = 1;
        }
        if (same_alignment16(x, y)) {
            i = axpy_steps<true, 16>(n, av, x, y, i);
            i = axpy_steps<true, 8>(n, av, x, y, i);
            i = axpy_steps<true, 2>(n, av, x, y, i);
        } else {
            i = axpy_steps<false, 8>(n, av, x, y, i);
            i = axpy_steps<false, 2>(n, av, x, y, i);
        }
        if (i < n) y[i] += a * x[i];
        return;
    }
    // Strided walk (also taken by arrays that are not 8-byte aligned).
    const double* px = first_element(x, n, incx);
    double* py = first_element(y, n, incy);
    i64 i = 0;
    for (; n - i >= 2; i += 2, px += 2 * incx, py += 2 * incy)
        scatter(py, py + incy, _mm_add_pd(gather(py, py + incy), _mm_mul_pd(av, gather(px, px + incx))));
    if (i < n) *py += a * *px;
}

namespace {

// y + x*(ar, ar) + swap(x)*(-ai, ai): (yr + xr*ar) - xi*ai and (yi + xi*ar) + xr*ai.
struct ZaxpyOp {
    __m128d ar, ai;
    template <bool A>
    void operator()(const dcomplex* x, dcomplex* y) const
    {
        const __m128d xv = load<A>(parts(x));
        const __m128d t = _mm_add_pd(load<A>(parts(y)), _mm_mul_pd(xv, ar));
        store<A>(parts(y), _mm_add_pd(t, _mm_mul_pd(swap_lanes(xv), ai)));
    }
};

}  // namespace

void zaxpy(const i64* n_, const dcomplex* alpha, const dcomplex* x, const i64* incx_, dcomplex* y, const i64* incy_)
{
    const i64 n = *n_, incx = *incx_, incy = *incy_;
    if (n < 1 || is_zero(*alpha)) return;
    const ZaxpyOp op{_mm_set1_pd(alpha->re), _mm_set_pd(alpha->im, -alpha->im)};
    if (unit_pair(incx, incy)) {
        i64 i = 0;
        if (aligned16(x) && aligned16(y)) {
            for (; n - i >= 8; i += 8)
                for (int k = 0; k < 8; ++k) op.operator()<true>(x + i + k, y + i + k);
        }
        for (; i < n; ++i) op.operator()<false>(x + i, y + i);
        return;
    }
    const dcomplex* px = first_element(x, n, incx);
    dcomplex* py = first_element(y, n, incy);
    for (i64 i = 0; i < n; ++i, px += incx, py += incy) op.operator()<false>(px, py);
}

}  // namespace orv::def
