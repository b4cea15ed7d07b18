// Element-wise vector operations in single precision and single complex:
// axpy, scaling, copy and swap.
#include "level1/single.h"
#include "service/elements.h"

namespace orv::plain {
namespace {

// y := alpha * x + y, the product rounded before the addition. A zero alpha
// returns before anything is read; a NaN alpha reaches every element.
template <typename T>
void axpy(const i64* n_, const T* alpha, const T* x, const i64* incx, T* y, const i64* incy)
{
    const i64 n = *n_;
    const T a = *alpha;
    if (n < 1 || is_zero(a)) return;
    const Strided<const T> xv = strided(x, n, *incx);
    const Strided<T> yv = strided(y, n, *incy);
    for (i64 i = 0; i < n; ++i) yv[i] = yv[i] + a * xv[i];
}

// x := alpha * x for a scalar of type S, always multiplied: alpha = 0 turns
// an infinity or a NaN into a NaN. An increment of 0 scales x(1) n times.
template <typename S, typename T>
void scal(const i64* n_, const S* alpha, T* x, const i64* incx)
{
    const i64 n = *n_;
    if (n < 1) return;
    const S a = *alpha;
    const Strided<T> xv = strided(x, n, *incx);
    for (i64 i = 0; i < n; ++i) xv[i] = a * xv[i];
}

template <typename T>
void copy(const i64* n_, const T* x, const i64* incx, T* y, const i64* incy)
{
    const i64 n = *n_;
    if (n < 1) return;
    const Strided<const T> xv = strided(x, n, *incx);
    const Strided<T> yv = strided(y, n, *incy);
    for (i64 i = 0; i < n; ++i) yv[i] = xv[i];
}

template <typename T>
void swap(const i64* n_, T* x, const i64* incx, T* y, const i64* incy)
{
    const i64 n = *n_;
    if (n < 1) return;
    const Strided<T> xv = strided(x, n, *incx);
    const Strided<T> yv = strided(y, n, *incy);
    for (i64 i = 0; i < n; ++i) {
        const T t = xv[i];
        xv[i] = yv[i];
        yv[i] = t;
    }
}

}  // namespace

void saxpy(const i64* n, const float* alpha, const float* x, const i64* incx, float* y, const i64* incy)
{
    axpy(n, alpha, x, incx, y, incy);
}

void caxpy(const i64* n, const fcomplex* alpha, const fcomplex* x, const i64* incx, fcomplex* y, const i64* incy)
{
    axpy(n, alpha, x, incx, y, incy);
}

void sscal(const i64* n, const float* alpha, float* x, const i64* incx) { scal(n, alpha, x, incx); }

void cscal(const i64* n, const fcomplex* alpha, fcomplex* x, const i64* incx) { scal(n, alpha, x, incx); }

void csscal(const i64* n, const float* alpha, fcomplex* x, const i64* incx) { scal(n, alpha, x, incx); }

void scopy(const i64* n, const float* x, const i64* incx, float* y, const i64* incy) { copy(n, x, incx, y, incy); }

void ccopy(const i64* n, const fcomplex* x, const i64* incx, fcomplex* y, const i64* incy)
{
    copy(n, x, incx, y, incy);
}

void sswap(const i64* n, float* x, const i64* incx, float* y, const i64* incy) { swap(n, x, incx, y, incy); }

void cswap(const i64* n, fcomplex* x, const i64* incx, fcomplex* y, const i64* incy) { swap(n, x, incx, y, incy); }

}  // namespace orv::plain
