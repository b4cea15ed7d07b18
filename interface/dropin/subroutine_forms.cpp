// The functions as subroutines, for callers that cannot take a function
// result (the C interface among them): the function's own export computes,
// its result goes to the address passed last.

#include <cstring>

#include "blas.h"

namespace {

// A complex result goes to a caller's pair of values, whatever its alignment.
template <typename Complex>
void store(void* result, Complex value)
{
    std::memcpy(result, &value, sizeof value);
}

}  // namespace

extern "C" {

void dasumsub_(const int* n, const double* x, const int* incx, double* result) { *result = dasum_(n, x, incx); }
void dzasumsub_(const int* n, const void* x, const int* incx, double* result) { *result = dzasum_(n, x, incx); }
void dnrm2sub_(const int* n, const double* x, const int* incx, double* result) { *result = dnrm2_(n, x, incx); }
void dznrm2sub_(const int* n, const void* x, const int* incx, double* result) { *result = dznrm2_(n, x, incx); }
void idamaxsub_(const int* n, const double* x, const int* incx, int* result) { *result = idamax_(n, x, incx); }
void izamaxsub_(const int* n, const void* x, const int* incx, int* result) { *result = izamax_(n, x, incx); }
void dcabs1sub_(const void* z, double* result) { *result = dcabs1_(z); }

void ddotsub_(const int* n, const double* x, const int* incx, const double* y, const int* incy, double* result)
{
    *result = ddot_(n, x, incx, y, incy);
}

void zdotcsub_(const int* n, const void* x, const int* incx, const void* y, const int* incy, void* result)
{
    store(result, zdotc_(n, x, incx, y, incy));
}

void zdotusub_(const int* n, const void* x, const int* incx, const void* y, const int* incy, void* result)
{
    store(result, zdotu_(n, x, incx, y, incy));
}

}  // extern "C"
