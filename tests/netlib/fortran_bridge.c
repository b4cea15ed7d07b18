/* Preloaded into the reference test programs; never part of the library.
 *
 * The programs were compiled by gfortran, which returns COMPLEX*16 function
 * results in registers, while our zdotc_/zdotu_ return theirs through a
 * hidden first argument. These wrappers bridge the two conventions and call
 * the library's own functions, found behind this object in the search order.
 *
 * The level-1 program also calls dsdot_ (single-precision inputs, double
 * accumulation), which is not one of the library's routines; it is supplied
 * here only so that the program loads and runs its other checks.
 */
#define _GNU_SOURCE
#include <complex.h>
#include <dlfcn.h>
#include <stdio.h>
#include <stdlib.h>

typedef void (*hidden_result_dot)(void*, const int*, const void*, const int*, const void*, const int*);

static double complex call_next(const char* name, const int* n, const void* x, const int* incx, const void* y,
                                const int* incy)
{
    hidden_result_dot next = (hidden_result_dot)dlsym(RTLD_NEXT, name);
    if (!next) {
        fprintf(stderr, "fortran_bridge: %s not found in the library\n", name);
        exit(3);
    }
    double result[2] = {0.0, 0.0};
    next(result, n, x, incx, y, incy);
    return CMPLX(result[0], result[1]);
}

double complex zdotc_(const int* n, const void* x, const int* incx, const void* y, const int* incy)
{
    return call_next("zdotc_", n, x, incx, y, incy);
}

double complex zdotu_(const int* n, const void* x, const int* incx, const void* y, const int* incy)
{
    return call_next("zdotu_", n, x, incx, y, incy);
}

double dsdot_(const int* n, const float* sx, const int* incx, const float* sy, const int* incy)
{
    double sum = 0.0;
    if (*n <= 0) return sum;
    int ix = *incx < 0 ? (1 - *n) * *incx : 0;
    int iy = *incy < 0 ? (1 - *n) * *incy : 0;
    for (int i = 0; i < *n; ++i, ix += *incx, iy += *incy) sum += (double)sx[ix] * (double)sy[iy];
    return sum;
}
