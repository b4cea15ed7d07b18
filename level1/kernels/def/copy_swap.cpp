// Baseline copy and swap, real and complex. Elements are moved as bit
// patterns (NaN payloads survive); no order is promised for overlapping
// vectors.
#include "level1/kernels.h"
#include "level1/kernels/sse2.h"

namespace orv::def {

using namespace orv::sse2;

namespace {

// m contiguous doubles, forwards.
void copy_run(i64 m, const double* x, double* y)
{
    i64 i = 0;
    for (; m - i >= 8; i += 8) {
        const __m128d v0 = _mm_loadu_pd(x + i), v1 = _mm_loadu_pd(x + i + 2);
        const __m128d v2 = _mm_loadu_pd(x + i + 4), v3 = _mm_loadu_pd(x + i + 6);
        _mm_storeu_pd(y + i, v0);
        _mm_storeu_pd(y + i + 2, v1);
        _mm_storeu_pd(y + i + 4, v2);
        _mm_storeu_pd(y + i + 6, v3);
    }
    for (; m - i >= 2; i += 2) _mm_storeu_pd(y + i, _mm_loadu_pd(x + i));
    if (i < m) y[i] = x[i];
}

void swap_run(i64 m, double* x, double* y)
{
    i64 i = 0;
    for (; m - i >= 4; i += 4) {
        const __m128d x0 = _mm_loadu_pd(x + i), x1 = _mm_loadu_pd(x + i + 2);
        const __m128d y0 = _mm_loadu_pd(y + i), y1 = _mm_loadu_pd(y + i + 2);
        _mm_storeu_pd(x + i, y0);
        _mm_storeu_pd(x + i + 2, y1);
        _mm_storeu_pd(y + i, x0);
        _mm_storeu_pd(y + i + 2, x1);
    }
    for (; m - i >= 2; i += 2) {
        const __m128d xv = _mm_loadu_pd(x + i);
        _mm_storeu_pd(x + i, _mm_loadu_pd(y + i));
        _mm_storeu_pd(y + i, xv);
    }
    if (i < m) {
        const double t = x[i];
        x[i] = y[i];
        y[i] = t;
    }
}

// Doubles per element: 1 for real, 2 for complex.
template <class T>
constexpr i64 kWidth = sizeof(T) / sizeof(double);

template <class T>
void copy_elements(i64 n, const T* x, i64 incx, T* y, i64 incy)
{
    if (n < 1) return;
    if (unit_pair(incx, incy)) {
        copy_run(n * kWidth<T>, reinterpret_cast<const double*>(x), reinterpret_cast<double*>(y));
        return;
    }
    const T* px = first_element(x, n, incx);
    T* py = first_element(y, n, incy);
    for (i64 i = 0; i < n; ++i, px += incx, py += incy) *py = *px;
}

template <class T>
void swap_elements(i64 n, T* x, i64 incx, T* y, i64 incy)
{
    if (n < 1) return;
    if (unit_pair(incx, incy)) {
        swap_run(n * kWidth<T>, reinterpret_cast<double*>(x), reinterpret_cast<double*>(y));
        return;
    }
    T* px = first_element(x, n, incx);
    T* py = first_element(y, n, incy);
    for (i64 i = 0; i < n; ++i, px += incx, py += incy) {
        const T t = *px;
        *px = *py;
        *py = t;
    }
}

}  // namespace

void dcopy(const i64* n, const double* x, const i64* incx, double* y, const i64* incy)
{
    copy_elements(*n, x, *incx, y, *incy);
}

void zcopy(const i64* n, const dcomplex* x, const i64* incx, dcomplex* y, const i64* incy)
{
    copy_elements(*n, x, *incx, y, *incy);
}

void dswap(const i64* n, double* x, const i64* incx, double* y, const i64* incy)
{
    swap_elements(*n, x, *incx, y, *incy);
}

void zswap(const i64* n, dcomplex* x, const i64* incx, dcomplex* y, const i64* incy)
{
    swap_elements(*n, x, *incx, y, *incy);
}

}  // namespace orv::def
