// Plane rotations in single precision and single complex: application and
// construction (the constructors are the double ones' scalar templates).
#include "level1/kernels/rotg_scalar.h"
#include "level1/single.h"
#include "service/elements.h"

namespace orv::plain {
namespace {

// Applies op(x, y) to each pair of elements; op updates both in place.
template <typename T, typename Op>
void for_each_pair(const i64* n_, T* x, const i64* incx, T* y, const i64* incy, Op op)
{
    const i64 n = *n_;
    if (n < 1) return;
    const Strided<T> xv = strided(x, n, *incx);
    const Strided<T> yv = strided(y, n, *incy);
    for (i64 i = 0; i < n; ++i) op(xv[i], yv[i]);
}

// x' = c*x + s*y, y' = c*y - s*x with real c and s; each part of a complex
// element is rotated alike.
template <typename T>
void rot(const i64* n, T* x, const i64* incx, T* y, const i64* incy, float c, float s)
{
    for_each_pair(n, x, incx, y, incy, [c, s](T& xi, T& yi) {
        const T t = c * xi + s * yi;
        yi = c * yi - s * xi;
        xi = t;
    });
}

}  // namespace

void srot(const i64* n, float* x, const i64* incx, float* y, const i64* incy, const float* c, const float* s)
{
    rot(n, x, incx, y, incy, *c, *s);
}

void csrot(const i64* n, fcomplex* x, const i64* incx, fcomplex* y, const i64* incy, const float* c,
           const float* s)
{
    rot(n, x, incx, y, incy, *c, *s);
}

// The modified rotation by the flag in param[0]: -1 full H, 0 unit diagonal,
// 1 unit off-diagonal (h21 = -1, h12 = 1), -2 identity (nothing to do). Only
// the entries of H that the flag stores are read.
void srotm(const i64* n, float* x, const i64* incx, float* y, const i64* incy, const float* param)
{
    const float flag = param[0];
    if (flag + 2.0f == 0.0f) return;
    if (flag < 0.0f) {
        const float h11 = param[1], h21 = param[2], h12 = param[3], h22 = param[4];
        for_each_pair(n, x, incx, y, incy, [=](float& xi, float& yi) {
            const float t = h11 * xi + h12 * yi;
            yi = h21 * xi + h22 * yi;
            xi = t;
        });
    } else if (flag == 0.0f) {
        const float h21 = param[2], h12 = param[3];
        for_each_pair(n, x, incx, y, incy, [=](float& xi, float& yi) {
            const float t = xi + h12 * yi;
            yi = h21 * xi + yi;
            xi = t;
        });
    } else {
        const float h11 = param[1], h22 = param[4];
        for_each_pair(n, x, incx, y, incy, [=](float& xi, float& yi) {
            const float t = h11 * xi + yi;
            yi = -xi + h22 * yi;
            xi = t;
        });
    }
}

void srotg(float* a, float* b, float* c, float* s) { scalar::rotg(a, b, c, s); }

void crotg(fcomplex* ca, const fcomplex* cb, float* c, fcomplex* s) { scalar::complex_rotg(ca, cb, c, s); }

void srotmg(float* d1, float* d2, float* x1, const float* y1, float* param) { scalar::rotmg(d1, d2, x1, y1, param); }

}  // namespace orv::plain
