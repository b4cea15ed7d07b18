// Baseline x := alpha*x, real, complex and complex by real. Every element is
// always multiplied: alpha = 0 turns an infinity or a NaN into a NaN, and
// alpha = 1 still reads and writes the vector.
#include "level1/kernels.h"
#include "level1/kernels/sse2.h"

namespace orv::def {

using namespace orv::sse2;

namespace {

template <int Width>
i64 scal_steps(i64 n, __m128d a, double* x, i64 i)
{
    for (; n - i >= Width; i += Width)
        for (int k = 0; k < Width; k += 2) store<true>(x + i + k, _mm_mul_pd(a, load<true>(x + i + k)));
    return i;
}

// Applies op to each complex element; unit increments run forwards from the
// base, with aligned accesses when the array allows them.
template <class Op>
void for_each_complex(i64 n, dcomplex* x, i64 incx, const Op& op)
{
    if (unit(incx)) {
        if (aligned16(x))
            for (i64 i = 0; i < n; ++i) op.template operator()<true>(x + i);
        else
            for (i64 i = 0; i < n; ++i) op.template operator()<false>(x + i);
        return;
    }
    dcomplex* p = first_element(x, n, incx);
    for (i64 i = 0; i < n; ++i, p += incx) op.template operator()<false>(p);
}

// x*(ar, ar) + swap(x)*(-ai, ai): xr*ar - xi*ai and xi*ar + xr*ai.
struct ZscalOp {
    __m128d ar, ai;
    template <bool A>
    void operator()(dcomplex* x) const
    {
        const __m128d xv = load<A>(parts(x));
        store<A>(parts(x), _mm_add_pd(_mm_mul_pd(xv, ar), _mm_mul_pd(swap_lanes(xv), ai)));
    }
};

struct ZdscalOp {
    __m128d a;
    template <bool A>
    void operator()(dcomplex* x) const
    {
        store<A>(parts(x), _mm_mul_pd(a, load<A>(parts(x))));
    }
};

}  // namespace

void dscal(const i64* n_, const double* alpha, double* x, const i64* incx_)
{
    const i64 n = *n_, incx = *incx_;
    if (n < 1) return;
    const double a = *alpha;
    if (unit(incx) && aligned8(x)) {
        i64 i = 0;
        if (!aligned16(x)) {
            x[0] *= a;
            i = 1;
        }
        const __m128d av = _mm_set1_pd(a);
        i = scal_steps<8>(n, av, x, i);
        i = scal_steps<4>(n, av, x, i);
        i = scal_steps<2>(n, av, x, i);
        if (i < n) x[i] *= a;
        return;
    }
    // Strided walk; an increment of 0 scales x(1) n times.
    double* p = first_element(x, n, incx);
    for (i64 i = 0; i < n; ++i, p += incx) *p *= a;
}

void zscal(const i64* n, const dcomplex* alpha, dcomplex* x, const i64* incx)
{
    if (*n < 1) return;
    for_each_complex(*n, x, *incx, ZscalOp{_mm_set1_pd(alpha->re), _mm_set_pd(alpha->im, -alpha->im)});
}

void zdscal(const i64* n, const double* alpha, dcomplex* x, const i64* incx)
{
    if (*n < 1) return;
    for_each_complex(*n, x, *incx, ZdscalOp{_mm_set1_pd(*alpha)});
}

}  // namespace orv::def
