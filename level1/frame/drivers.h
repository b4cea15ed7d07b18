// Threaded drivers of the vector operations: the inner layer of the level-1
// exports. Each has its kernel's argument list (level1/kernels.h), all by
// address with 64-bit integers, and returns what the routine returns. Long
// vectors are split over an OpenMP team; short ones, and a single permitted
// thread, go to one kernel call on the calling thread.
//
// The rotation constructors (drotg, drotmg, zrotg) and dcabs1 have no
// vector to split and no driver.
#pragma once

#include "service/types.h"

// Reductions.
double orv_blas_ddot(const orv::i64* n, const double* x, const orv::i64* incx, const double* y,
                     const orv::i64* incy);
void orv_blas_zdotc(orv::dcomplex* result, const orv::i64* n, const orv::dcomplex* x, const orv::i64* incx,
                    const orv::dcomplex* y, const orv::i64* incy);
void orv_blas_zdotu(orv::dcomplex* result, const orv::i64* n, const orv::dcomplex* x, const orv::i64* incx,
                    const orv::dcomplex* y, const orv::i64* incy);
double orv_blas_dasum(const orv::i64* n, const double* x, const orv::i64* incx);
double orv_blas_dzasum(const orv::i64* n, const orv::dcomplex* x, const orv::i64* incx);
double orv_blas_dnrm2(const orv::i64* n, const double* x, const orv::i64* incx);
double orv_blas_dznrm2(const orv::i64* n, const orv::dcomplex* x, const orv::i64* incx);
orv::i64 orv_blas_idamax(const orv::i64* n, const double* x, const orv::i64* incx);
orv::i64 orv_blas_izamax(const orv::i64* n, const orv::dcomplex* x, const orv::i64* incx);

// Element-wise updates.
void orv_blas_daxpy(const orv::i64* n, const double* alpha, const double* x, const orv::i64* incx, double* y,
                    const orv::i64* incy);
void orv_blas_zaxpy(const orv::i64* n, const orv::dcomplex* alpha, const orv::dcomplex* x, const orv::i64* incx,
                    orv::dcomplex* y, const orv::i64* incy);
void orv_blas_dcopy(const orv::i64* n, const double* x, const orv::i64* incx, double* y, const orv::i64* incy);
void orv_blas_zcopy(const orv::i64* n, const orv::dcomplex* x, const orv::i64* incx, orv::dcomplex* y,
                    const orv::i64* incy);
void orv_blas_dswap(const orv::i64* n, double* x, const orv::i64* incx, double* y, const orv::i64* incy);
void orv_blas_zswap(const orv::i64* n, orv::dcomplex* x, const orv::i64* incx, orv::dcomplex* y,
                    const orv::i64* incy);
void orv_blas_dscal(const orv::i64* n, const double* alpha, double* x, const orv::i64* incx);
void orv_blas_zscal(const orv::i64* n, const orv::dcomplex* alpha, orv::dcomplex* x, const orv::i64* incx);
void orv_blas_zdscal(const orv::i64* n, const double* alpha, orv::dcomplex* x, const orv::i64* incx);
void orv_blas_drot(const orv::i64* n, double* x, const orv::i64* incx, double* y, const orv::i64* incy,
                   const double* c, const double* s);
void orv_blas_drotm(const orv::i64* n, double* x, const orv::i64* incx, double* y, const orv::i64* incy,
                    const double* param);
void orv_blas_zdrot(const orv::i64* n, orv::dcomplex* x, const orv::i64* incx, orv::dcomplex* y,
                    const orv::i64* incy, const double* c, const double* s);
