// Level-1 routines in single precision and single complex, plain members.
//
// Arguments by address with 64-bit integers, as for the double kernels
// (level1/kernels.h); a negative increment walks a vector from its far end.
// Each routine is an instance of one algorithm over the element type, with
// the reference definition's semantics and the double routines' behaviour
// for n < 1: nothing is touched, a sum is 0, an index is 0.
#pragma once

#include "service/types.h"

namespace orv::plain {

// Dot products. sdsdot adds the sum to sb and dsdot returns it, both
// accumulated in double; the complex ones write their result to *result.
float sdot(const i64* n, const float* x, const i64* incx, const float* y, const i64* incy);
float sdsdot(const i64* n, const float* sb, const float* x, const i64* incx, const float* y, const i64* incy);
double dsdot(const i64* n, const float* x, const i64* incx, const float* y, const i64* incy);
void cdotc(fcomplex* result, const i64* n, const fcomplex* x, const i64* incx, const fcomplex* y, const i64* incy);
void cdotu(fcomplex* result, const i64* n, const fcomplex* x, const i64* incx, const fcomplex* y, const i64* incy);

// y := alpha * x + y (a zero alpha leaves y untouched), x := alpha * x
// (always multiplied), copy and swap.
void saxpy(const i64* n, const float* alpha, const float* x, const i64* incx, float* y, const i64* incy);
void caxpy(const i64* n, const fcomplex* alpha, const fcomplex* x, const i64* incx, fcomplex* y, const i64* incy);
void sscal(const i64* n, const float* alpha, float* x, const i64* incx);
void cscal(const i64* n, const fcomplex* alpha, fcomplex* x, const i64* incx);
void csscal(const i64* n, const float* alpha, fcomplex* x, const i64* incx);
void scopy(const i64* n, const float* x, const i64* incx, float* y, const i64* incy);
void ccopy(const i64* n, const fcomplex* x, const i64* incx, fcomplex* y, const i64* incy);
void sswap(const i64* n, float* x, const i64* incx, float* y, const i64* incy);
void cswap(const i64* n, fcomplex* x, const i64* incx, fcomplex* y, const i64* incy);

// Euclidean norms, sums of magnitudes and the 1-based index of the first
// largest magnitude (0 for n < 1 or incx < 1). The magnitude of a complex
// element is |re| + |im|, not its modulus.
float snrm2(const i64* n, const float* x, const i64* incx);
float scnrm2(const i64* n, const fcomplex* x, const i64* incx);
float sasum(const i64* n, const float* x, const i64* incx);
float scasum(const i64* n, const fcomplex* x, const i64* incx);
i64 isamax(const i64* n, const float* x, const i64* incx);
i64 icamax(const i64* n, const fcomplex* x, const i64* incx);
float scabs1(const fcomplex* z);

// Plane rotations: application and construction.
void srot(const i64* n, float* x, const i64* incx, float* y, const i64* incy, const float* c, const float* s);
void csrot(const i64* n, fcomplex* x, const i64* incx, fcomplex* y, const i64* incy, const float* c,
           const float* s);
void srotm(const i64* n, float* x, const i64* incx, float* y, const i64* incy, const float* param);
void srotg(float* a, float* b, float* c, float* s);
void crotg(fcomplex* ca, const fcomplex* cb, float* c, fcomplex* s);
void srotmg(float* d1, float* d2, float* x1, const float* y1, float* param);

}  // namespace orv::plain
