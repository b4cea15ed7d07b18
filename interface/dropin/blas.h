// The Fortran-convention routines that the drop-in library adds to the 77 of
// orv.h: single precision and single complex, the mixed-precision dot
// products and the complex single dot products, whose result comes back in
// registers as gfortran returns a COMPLEX function result; the subroutine
// forms of the functions; the error handlers. Complex arguments of the s and c
// routines are addresses of two adjacent floats, real part first. Linux only.
#pragma once

#include <stddef.h>

#include "orv.h"

#ifdef __cplusplus
extern "C" {
#endif

#ifdef __cplusplus
typedef __complex__ float orv_complex_float;
#else
typedef float _Complex orv_complex_float;
#endif

/* Level 1 */
ORV_API float sasum_(const int* n, const float* x, const int* incx);
ORV_API void saxpy_(const int* n, const float* alpha, const float* x, const int* incx, float* y, const int* incy);
ORV_API float scabs1_(const void* z);
ORV_API void scopy_(const int* n, const float* x, const int* incx, float* y, const int* incy);
ORV_API float sdot_(const int* n, const float* x, const int* incx, const float* y, const int* incy);
ORV_API float snrm2_(const int* n, const float* x, const int* incx);
ORV_API void srot_(const int* n, float* x, const int* incx, float* y, const int* incy, const float* c,
                   const float* s);
ORV_API void srotg_(float* a, float* b, float* c, float* s);
ORV_API void srotm_(const int* n, float* x, const int* incx, float* y, const int* incy, const float* param);
ORV_API void srotmg_(float* d1, float* d2, float* x1, const float* y1, float* param);
ORV_API void sscal_(const int* n, const float* alpha, float* x, const int* incx);
ORV_API void sswap_(const int* n, float* x, const int* incx, float* y, const int* incy);
ORV_API float scasum_(const int* n, const void* x, const int* incx);
ORV_API float scnrm2_(const int* n, const void* x, const int* incx);
ORV_API int isamax_(const int* n, const float* x, const int* incx);
ORV_API int icamax_(const int* n, const void* x, const int* incx);
ORV_API void caxpy_(const int* n, const void* alpha, const void* x, const int* incx, void* y, const int* incy);
ORV_API void ccopy_(const int* n, const void* x, const int* incx, void* y, const int* incy);
ORV_API void csrot_(const int* n, void* x, const int* incx, void* y, const int* incy, const float* c, const float* s);
ORV_API void csscal_(const int* n, const float* alpha, void* x, const int* incx);
ORV_API void crotg_(void* ca, const void* cb, float* c, void* s);
ORV_API void cscal_(const int* n, const void* alpha, void* x, const int* incx);
ORV_API void cswap_(const int* n, void* x, const int* incx, void* y, const int* incy);
ORV_API float sdsdot_(const int* n, const float* sb, const float* x, const int* incx, const float* y,
                      const int* incy);
ORV_API double dsdot_(const int* n, const float* x, const int* incx, const float* y, const int* incy);
ORV_API orv_complex_float cdotc_(const int* n, const void* x, const int* incx, const void* y, const int* incy);
ORV_API orv_complex_float cdotu_(const int* n, const void* x, const int* incx, const void* y, const int* incy);

/* Level 2 */
ORV_API void sgemv_(const char* trans, const int* m, const int* n, const float* alpha, const float* a, const int* lda,
                    const float* x, const int* incx, const float* beta, float* y, const int* incy);
ORV_API void cgemv_(const char* trans, const int* m, const int* n, const void* alpha, const void* a, const int* lda,
                    const void* x, const int* incx, const void* beta, void* y, const int* incy);
ORV_API void sgbmv_(const char* trans, const int* m, const int* n, const int* kl, const int* ku, const float* alpha,
                    const float* a, const int* lda, const float* x, const int* incx, const float* beta, float* y,
                    const int* incy);
ORV_API void cgbmv_(const char* trans, const int* m, const int* n, const int* kl, const int* ku, const void* alpha,
                    const void* a, const int* lda, const void* x, const int* incx, const void* beta, void* y,
                    const int* incy);
ORV_API void sger_(const int* m, const int* n, const float* alpha, const float* x, const int* incx, const float* y,
                   const int* incy, float* a, const int* lda);
ORV_API void cgeru_(const int* m, const int* n, const void* alpha, const void* x, const int* incx, const void* y,
                    const int* incy, void* a, const int* lda);
ORV_API void cgerc_(const int* m, const int* n, const void* alpha, const void* x, const int* incx, const void* y,
                    const int* incy, void* a, const int* lda);
ORV_API void ssymv_(const char* uplo, const int* n, const float* alpha, const float* a, const int* lda,
                    const float* x, const int* incx, const float* beta, float* y, const int* incy);
ORV_API void chemv_(const char* uplo, const int* n, const void* alpha, const void* a, const int* lda, const void* x,
                    const int* incx, const void* beta, void* y, const int* incy);
ORV_API void ssbmv_(const char* uplo, const int* n, const int* k, const float* alpha, const float* a, const int* lda,
                    const float* x, const int* incx, const float* beta, float* y, const int* incy);
ORV_API void chbmv_(const char* uplo, const int* n, const int* k, const void* alpha, const void* a, const int* lda,
                    const void* x, const int* incx, const void* beta, void* y, const int* incy);
ORV_API void sspmv_(const char* uplo, const int* n, const float* alpha, const float* ap, const float* x,
                    const int* incx, const float* beta, float* y, const int* incy);
ORV_API void chpmv_(const char* uplo, const int* n, const void* alpha, const void* ap, const void* x, const int* incx,
                    const void* beta, void* y, const int* incy);
ORV_API void ssyr_(const char* uplo, const int* n, const float* alpha, const float* x, const int* incx, float* a,
                   const int* lda);
ORV_API void cher_(const char* uplo, const int* n, const float* alpha, const void* x, const int* incx, void* a,
                   const int* lda);
ORV_API void ssyr2_(const char* uplo, const int* n, const float* alpha, const float* x, const int* incx,
                    const float* y, const int* incy, float* a, const int* lda);
ORV_API void cher2_(const char* uplo, const int* n, const void* alpha, const void* x, const int* incx, const void* y,
                    const int* incy, void* a, const int* lda);
ORV_API void sspr_(const char* uplo, const int* n, const float* alpha, const float* x, const int* incx, float* ap);
ORV_API void chpr_(const char* uplo, const int* n, const float* alpha, const void* x, const int* incx, void* ap);
ORV_API void sspr2_(const char* uplo, const int* n, const float* alpha, const float* x, const int* incx,
                    const float* y, const int* incy, float* ap);
ORV_API void chpr2_(const char* uplo, const int* n, const void* alpha, const void* x, const int* incx, const void* y,
                    const int* incy, void* ap);
ORV_API void strmv_(const char* uplo, const char* trans, const char* diag, const int* n, const float* a,
                    const int* lda, float* x, const int* incx);
ORV_API void strsv_(const char* uplo, const char* trans, const char* diag, const int* n, const float* a,
                    const int* lda, float* x, const int* incx);
ORV_API void ctrmv_(const char* uplo, const char* trans, const char* diag, const int* n, const void* a,
                    const int* lda, void* x, const int* incx);
ORV_API void ctrsv_(const char* uplo, const char* trans, const char* diag, const int* n, const void* a,
                    const int* lda, void* x, const int* incx);
ORV_API void stbmv_(const char* uplo, const char* trans, const char* diag, const int* n, const int* k, const float* a,
                    const int* lda, float* x, const int* incx);
ORV_API void stbsv_(const char* uplo, const char* trans, const char* diag, const int* n, const int* k, const float* a,
                    const int* lda, float* x, const int* incx);
ORV_API void ctbmv_(const char* uplo, const char* trans, const char* diag, const int* n, const int* k, const void* a,
                    const int* lda, void* x, const int* incx);
ORV_API void ctbsv_(const char* uplo, const char* trans, const char* diag, const int* n, const int* k, const void* a,
                    const int* lda, void* x, const int* incx);
ORV_API void stpmv_(const char* uplo, const char* trans, const char* diag, const int* n, const float* ap, float* x,
                    const int* incx);
ORV_API void stpsv_(const char* uplo, const char* trans, const char* diag, const int* n, const float* ap, float* x,
                    const int* incx);
ORV_API void ctpmv_(const char* uplo, const char* trans, const char* diag, const int* n, const void* ap, void* x,
                    const int* incx);
ORV_API void ctpsv_(const char* uplo, const char* trans, const char* diag, const int* n, const void* ap, void* x,
                    const int* incx);

/* Level 3 */
ORV_API void sgemm_(const char* transa, const char* transb, const int* m, const int* n, const int* k,
                    const float* alpha, const float* a, const int* lda, const float* b, const int* ldb,
                    const float* beta, float* c, const int* ldc);
ORV_API void cgemm_(const char* transa, const char* transb, const int* m, const int* n, const int* k,
                    const void* alpha, const void* a, const int* lda, const void* b, const int* ldb, const void* beta,
                    void* c, const int* ldc);
ORV_API void ssymm_(const char* side, const char* uplo, const int* m, const int* n, const float* alpha,
                    const float* a, const int* lda, const float* b, const int* ldb, const float* beta, float* c,
                    const int* ldc);
ORV_API void csymm_(const char* side, const char* uplo, const int* m, const int* n, const void* alpha, const void* a,
                    const int* lda, const void* b, const int* ldb, const void* beta, void* c, const int* ldc);
ORV_API void chemm_(const char* side, const char* uplo, const int* m, const int* n, const void* alpha, const void* a,
                    const int* lda, const void* b, const int* ldb, const void* beta, void* c, const int* ldc);
ORV_API void ssyrk_(const char* uplo, const char* trans, const int* n, const int* k, const float* alpha,
                    const float* a, const int* lda, const float* beta, float* c, const int* ldc);
ORV_API void csyrk_(const char* uplo, const char* trans, const int* n, const int* k, const void* alpha, const void* a,
                    const int* lda, const void* beta, void* c, const int* ldc);
ORV_API void cherk_(const char* uplo, const char* trans, const int* n, const int* k, const float* alpha,
                    const void* a, const int* lda, const float* beta, void* c, const int* ldc);
ORV_API void ssyr2k_(const char* uplo, const char* trans, const int* n, const int* k, const float* alpha,
                     const float* a, const int* lda, const float* b, const int* ldb, const float* beta, float* c,
                     const int* ldc);
ORV_API void csyr2k_(const char* uplo, const char* trans, const int* n, const int* k, const void* alpha,
                     const void* a, const int* lda, const void* b, const int* ldb, const void* beta, void* c,
                     const int* ldc);
ORV_API void cher2k_(const char* uplo, const char* trans, const int* n, const int* k, const void* alpha,
                     const void* a, const int* lda, const void* b, const int* ldb, const float* beta, void* c,
                     const int* ldc);
ORV_API void strmm_(const char* side, const char* uplo, const char* transa, const char* diag, const int* m,
                    const int* n, const float* alpha, const float* a, const int* lda, float* b, const int* ldb);
ORV_API void ctrmm_(const char* side, const char* uplo, const char* transa, const char* diag, const int* m,
                    const int* n, const void* alpha, const void* a, const int* lda, void* b, const int* ldb);
ORV_API void strsm_(const char* side, const char* uplo, const char* transa, const char* diag, const int* m,
                    const int* n, const float* alpha, const float* a, const int* lda, float* b, const int* ldb);
ORV_API void ctrsm_(const char* side, const char* uplo, const char* transa, const char* diag, const int* m,
                    const int* n, const void* alpha, const void* a, const int* lda, void* b, const int* ldb);

/* The functions as subroutines: their arguments, then the address that
 * receives the result. */
ORV_API void sasumsub_(const int* n, const float* x, const int* incx, float* result);
ORV_API void dasumsub_(const int* n, const double* x, const int* incx, double* result);
ORV_API void scasumsub_(const int* n, const void* x, const int* incx, float* result);
ORV_API void dzasumsub_(const int* n, const void* x, const int* incx, double* result);
ORV_API void snrm2sub_(const int* n, const float* x, const int* incx, float* result);
ORV_API void dnrm2sub_(const int* n, const double* x, const int* incx, double* result);
ORV_API void scnrm2sub_(const int* n, const void* x, const int* incx, float* result);
ORV_API void dznrm2sub_(const int* n, const void* x, const int* incx, double* result);
ORV_API void isamaxsub_(const int* n, const float* x, const int* incx, int* result);
ORV_API void idamaxsub_(const int* n, const double* x, const int* incx, int* result);
ORV_API void icamaxsub_(const int* n, const void* x, const int* incx, int* result);
ORV_API void izamaxsub_(const int* n, const void* x, const int* incx, int* result);
ORV_API void scabs1sub_(const void* z, float* result);
ORV_API void dcabs1sub_(const void* z, double* result);
ORV_API void sdotsub_(const int* n, const float* x, const int* incx, const float* y, const int* incy, float* result);
ORV_API void ddotsub_(const int* n, const double* x, const int* incx, const double* y, const int* incy,
                      double* result);
ORV_API void sdsdotsub_(const int* n, const float* sb, const float* x, const int* incx, const float* y,
                        const int* incy, float* result);
ORV_API void dsdotsub_(const int* n, const float* x, const int* incx, const float* y, const int* incy,
                       double* result);
ORV_API void cdotcsub_(const int* n, const void* x, const int* incx, const void* y, const int* incy, void* result);
ORV_API void cdotusub_(const int* n, const void* x, const int* incx, const void* y, const int* incy, void* result);
ORV_API void zdotcsub_(const int* n, const void* x, const int* incx, const void* y, const int* incy, void* result);
ORV_API void zdotusub_(const int* n, const void* x, const int* incx, const void* y, const int* incy, void* result);

/* Error handlers. xerbla_ is called as Fortran calls it: the routine name,
 * the address of the code, then the hidden length of the name; it prints the
 * report. xerbla_array_ takes the name as an array of characters and its
 * length, and hands the report to the host program's xerbla_ when there is
 * one. */
ORV_API void xerbla_(const char* name, const int* info, size_t name_length);
ORV_API void xerbla_array_(const char* name, const int* name_length, const int* info);

#ifdef __cplusplus
}
#endif
