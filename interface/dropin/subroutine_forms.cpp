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

void sasumsub_(const int* n, const float* x, const int* incx, float* result) { *result = sasum_(n, x, incx); }
void scasumsub_(const int* n, const void* x, const int* incx, float* result) { *result = scasum_(n, x, incx); }
void snrm2sub_(const int* n, const float* x, const int* incx, float* result) { *result = snrm2_(n, x, incx); }
void scnrm2sub_(const int* n, const void* x, const int* incx, float* result) { *result = scnrm2_(n, x, incx); }
void isamaxsub_(const int* n, const float* x, const int* incx, int* result) { *result = isamax_(n, x, incx); }
void icamaxsub_(const int* n, const void* x, const int* incx, int* result) { *result = icamax_(n, x, incx); }
void scabs1sub_(const void* z, float* result) { *result = scabs1_(z); }

void dasumsub_(const int* n, const double* x, const int* incx, double* result) { *result = dasum_(n, x, incx); }
void dzasumsub_(const int* n, const void* x, const int* incx, double* result) { *result = dzasum_(n, x, incx); }
void dnrm2sub_(const int* n, const double* x, const int* incx, double* result) { *result = dnrm2_(n, x, incx); }
void dznrm2sub_(const int* n, const void* x, const int* incx, double* result) { *result = dznrm2_(n, x, incx); }
void idamaxsub_(const int* n, const double* x, const int* incx, int* result) { *result = idamax_(n, x, incx); }
void izamaxsub_(const int* n, const void* x, const int* incx, int* result) { *result = izamax_(n, x, incx); }
void dcabs1sub_(const void* z, double* result) { *result = dcabs1_(z); }

void sdotsub_(const int* n, const float* x, const int* incx, const float* y, const int* incy, float* result)
{
    *result = sdot_(n, x, incx, y, incy);
}

void sdsdotsub_(const int* n, const float* sb, const float* x, const int* incx, const float* y, const int* incy,
                float* result)
{
    *result = sdsdot_(n, sb, x, incx, y, incy);
}

void dsdotsub_(const int* n, const float* x, const int* incx, const float* y, const int* incy, double* result)
{
    *result = dsdot_(n, x, incx, y, incy);
}

void ddotsub_(const int* n, const double* x, const int* incx, const double* y, const int* incy, double* result)
{
    *result = ddot_(n, x, incx, y, incy);
}

void cdotcsub_(const int* n, const void* x, const int* incx, const void* y, const int* incy, void* result)
{
    store(result, cdotc_(n, x, incx, y, incy));
}

void cdotusub_(const int* n, const void* x, const int* incx, const void* y, const int* incy, void* result)
{
    store(result, cdotu_(n, x, incx, y, incy));
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
