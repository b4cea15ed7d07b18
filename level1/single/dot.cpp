// Dot products in single precision: the products summed in the order of the
// elements, in an accumulator of type Acc (float, fcomplex, or double for
// the extended products, where the products of floats are exact).
#include "level1/single.h"
#include "service/elements.h"

namespace orv::plain {
namespace {

template <bool Conj, typename T, typename Acc>
Acc dot(const i64* n_, const T* x, const i64* incx, const T* y, const i64* incy, Acc sum)
{
    const i64 n = *n_;
    if (n < 1) return sum;
    const Strided<const T> xv = strided(x, n, *incx);
    const Strided<const T> yv = strided(y, n, *incy);
    for (i64 i = 0; i < n; ++i) sum = sum + conj_if<Conj>(static_cast<Acc>(xv[i])) * static_cast<Acc>(yv[i]);
    return sum;
}

}  // namespace

float sdot(const i64* n, const float* x, const i64* incx, const float* y, const i64* incy)
{
    return dot<false>(n, x, incx, y, incy, 0.0f);
}

float sdsdot(const i64* n, const float* sb, const float* x, const i64* incx, const float* y, const i64* incy)
{
    return static_cast<float>(dot<false>(n, x, incx, y, incy, static_cast<double>(*sb)));
}

double dsdot(const i64* n, const float* x, const i64* incx, const float* y, const i64* incy)
{
    return dot<false>(n, x, incx, y, incy, 0.0);
}

void cdotc(fcomplex* result, const i64* n, const fcomplex* x, const i64* incx, const fcomplex* y, const i64* incy)
{
    *result = dot<true>(n, x, incx, y, incy, fcomplex{});
}

void cdotu(fcomplex* result, const i64* n, const fcomplex* x, const i64* incx, const fcomplex* y, const i64* incy)
{
    *result = dot<false>(n, x, incx, y, incy, fcomplex{});
}

}  // namespace orv::plain
