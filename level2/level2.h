// Level-2 routines, plain single-thread members, in single (s, c) and
// double (d, z) precision: each precision's members are instances of the
// same algorithm.
//
// Argument lists are those of the standard routines, every argument by
// address, with the exports' widened 64-bit integers. Arguments arrive
// validated; option letters are read at their first character, in either case,
// and for the real routines 'C' means 'T'. Matrices are column-major: element
// (i, j) of A lies at a[i + j * lda]; band and packed storage as the standard
// defines it. Vectors with a negative increment are walked from their far end.
#pragma once

#include "service/types.h"

namespace orv::plain {

// y := alpha * op(A) * x + beta * y
void sgemv(const char* trans, const i64* m, const i64* n, const float* alpha, const float* a, const i64* lda,
           const float* x, const i64* incx, const float* beta, float* y, const i64* incy);
void cgemv(const char* trans, const i64* m, const i64* n, const fcomplex* alpha, const fcomplex* a, const i64* lda,
           const fcomplex* x, const i64* incx, const fcomplex* beta, fcomplex* y, const i64* incy);

// y := alpha * op(A) * x + beta * y, A an m x n band matrix with kl sub- and ku super-diagonals.
void sgbmv(const char* trans, const i64* m, const i64* n, const i64* kl, const i64* ku, const float* alpha,
           const float* a, const i64* lda, const float* x, const i64* incx, const float* beta, float* y,
           const i64* incy);
void dgbmv(const char* trans, const i64* m, const i64* n, const i64* kl, const i64* ku, const double* alpha,
           const double* a, const i64* lda, const double* x, const i64* incx, const double* beta, double* y,
           const i64* incy);
void cgbmv(const char* trans, const i64* m, const i64* n, const i64* kl, const i64* ku, const fcomplex* alpha,
           const fcomplex* a, const i64* lda, const fcomplex* x, const i64* incx, const fcomplex* beta, fcomplex* y,
           const i64* incy);
void zgbmv(const char* trans, const i64* m, const i64* n, const i64* kl, const i64* ku, const dcomplex* alpha,
           const dcomplex* a, const i64* lda, const dcomplex* x, const i64* incx, const dcomplex* beta, dcomplex* y,
           const i64* incy);

// A := alpha * x * y^T + A (gerc: alpha * x * y^H + A)
void sger(const i64* m, const i64* n, const float* alpha, const float* x, const i64* incx, const float* y,
          const i64* incy, float* a, const i64* lda);
void cgeru(const i64* m, const i64* n, const fcomplex* alpha, const fcomplex* x, const i64* incx, const fcomplex* y,
           const i64* incy, fcomplex* a, const i64* lda);
void cgerc(const i64* m, const i64* n, const fcomplex* alpha, const fcomplex* x, const i64* incx, const fcomplex* y,
           const i64* incy, fcomplex* a, const i64* lda);

// y := alpha * A * x + beta * y, A symmetric (Hermitian for the complex routines),
// stored in its uplo triangle: full (symv, hemv), band (sbmv, hbmv) or packed (spmv, hpmv).
void ssymv(const char* uplo, const i64* n, const float* alpha, const float* a, const i64* lda, const float* x,
           const i64* incx, const float* beta, float* y, const i64* incy);
void chemv(const char* uplo, const i64* n, const fcomplex* alpha, const fcomplex* a, const i64* lda, const fcomplex* x,
           const i64* incx, const fcomplex* beta, fcomplex* y, const i64* incy);
void ssbmv(const char* uplo, const i64* n, const i64* k, const float* alpha, const float* a, const i64* lda,
           const float* x, const i64* incx, const float* beta, float* y, const i64* incy);
void dsbmv(const char* uplo, const i64* n, const i64* k, const double* alpha, const double* a, const i64* lda,
           const double* x, const i64* incx, const double* beta, double* y, const i64* incy);
void chbmv(const char* uplo, const i64* n, const i64* k, const fcomplex* alpha, const fcomplex* a, const i64* lda,
           const fcomplex* x, const i64* incx, const fcomplex* beta, fcomplex* y, const i64* incy);
void zhbmv(const char* uplo, const i64* n, const i64* k, const dcomplex* alpha, const dcomplex* a, const i64* lda,
           const dcomplex* x, const i64* incx, const dcomplex* beta, dcomplex* y, const i64* incy);
void sspmv(const char* uplo, const i64* n, const float* alpha, const float* ap, const float* x, const i64* incx,
           const float* beta, float* y, const i64* incy);
void dspmv(const char* uplo, const i64* n, const double* alpha, const double* ap, const double* x, const i64* incx,
           const double* beta, double* y, const i64* incy);
void chpmv(const char* uplo, const i64* n, const fcomplex* alpha, const fcomplex* ap, const fcomplex* x,
           const i64* incx, const fcomplex* beta, fcomplex* y, const i64* incy);
void zhpmv(const char* uplo, const i64* n, const dcomplex* alpha, const dcomplex* ap, const dcomplex* x,
           const i64* incx, const dcomplex* beta, dcomplex* y, const i64* incy);

// A := alpha * x * x^T + A (x^H for the complex routines; alpha is real in all),
// uplo triangle only, full (syr, her) or packed (spr, hpr).
void ssyr(const char* uplo, const i64* n, const float* alpha, const float* x, const i64* incx, float* a,
          const i64* lda);
void cher(const char* uplo, const i64* n, const float* alpha, const fcomplex* x, const i64* incx, fcomplex* a,
          const i64* lda);
void sspr(const char* uplo, const i64* n, const float* alpha, const float* x, const i64* incx, float* ap);
void chpr(const char* uplo, const i64* n, const float* alpha, const fcomplex* x, const i64* incx, fcomplex* ap);

// A := alpha * x * y^T + alpha * y * x^T + A
// (complex routines: alpha * x * y^H + conj(alpha) * y * x^H + A), uplo triangle only.
void ssyr2(const char* uplo, const i64* n, const float* alpha, const float* x, const i64* incx, const float* y,
           const i64* incy, float* a, const i64* lda);
void cher2(const char* uplo, const i64* n, const fcomplex* alpha, const fcomplex* x, const i64* incx, const fcomplex* y,
           const i64* incy, fcomplex* a, const i64* lda);
void sspr2(const char* uplo, const i64* n, const float* alpha, const float* x, const i64* incx, const float* y,
           const i64* incy, float* ap);
void chpr2(const char* uplo, const i64* n, const fcomplex* alpha, const fcomplex* x, const i64* incx, const fcomplex* y,
           const i64* incy, fcomplex* ap);

// x := op(A) * x, A triangular: full (trmv), band with k off-diagonals (tbmv) or packed (tpmv).
void strmv(const char* uplo, const char* trans, const char* diag, const i64* n, const float* a, const i64* lda,
           float* x, const i64* incx);
void ctrmv(const char* uplo, const char* trans, const char* diag, const i64* n, const fcomplex* a, const i64* lda,
           fcomplex* x, const i64* incx);
void stbmv(const char* uplo, const char* trans, const char* diag, const i64* n, const i64* k, const float* a,
           const i64* lda, float* x, const i64* incx);
void dtbmv(const char* uplo, const char* trans, const char* diag, const i64* n, const i64* k, const double* a,
           const i64* lda, double* x, const i64* incx);
void ctbmv(const char* uplo, const char* trans, const char* diag, const i64* n, const i64* k, const fcomplex* a,
           const i64* lda, fcomplex* x, const i64* incx);
void ztbmv(const char* uplo, const char* trans, const char* diag, const i64* n, const i64* k, const dcomplex* a,
           const i64* lda, dcomplex* x, const i64* incx);
void stpmv(const char* uplo, const char* trans, const char* diag, const i64* n, const float* ap, float* x,
           const i64* incx);
void dtpmv(const char* uplo, const char* trans, const char* diag, const i64* n, const double* ap, double* x,
           const i64* incx);
void ctpmv(const char* uplo, const char* trans, const char* diag, const i64* n, const fcomplex* ap, fcomplex* x,
           const i64* incx);
void ztpmv(const char* uplo, const char* trans, const char* diag, const i64* n, const dcomplex* ap, dcomplex* x,
           const i64* incx);

// Solves op(A) * x = b in place (x holds b on entry), A triangular as above.
// A zero diagonal element yields infinities or NaN; it is not tested for.
void strsv(const char* uplo, const char* trans, const char* diag, const i64* n, const float* a, const i64* lda,
           float* x, const i64* incx);
void ctrsv(const char* uplo, const char* trans, const char* diag, const i64* n, const fcomplex* a, const i64* lda,
           fcomplex* x, const i64* incx);
void stbsv(const char* uplo, const char* trans, const char* diag, const i64* n, const i64* k, const float* a,
           const i64* lda, float* x, const i64* incx);
void dtbsv(const char* uplo, const char* trans, const char* diag, const i64* n, const i64* k, const double* a,
           const i64* lda, double* x, const i64* incx);
void ctbsv(const char* uplo, const char* trans, const char* diag, const i64* n, const i64* k, const fcomplex* a,
           const i64* lda, fcomplex* x, const i64* incx);
void ztbsv(const char* uplo, const char* trans, const char* diag, const i64* n, const i64* k, const dcomplex* a,
           const i64* lda, dcomplex* x, const i64* incx);
void stpsv(const char* uplo, const char* trans, const char* diag, const i64* n, const float* ap, float* x,
           const i64* incx);
void dtpsv(const char* uplo, const char* trans, const char* diag, const i64* n, const double* ap, double* x,
           const i64* incx);
void ctpsv(const char* uplo, const char* trans, const char* diag, const i64* n, const fcomplex* ap, fcomplex* x,
           const i64* incx);
void ztpsv(const char* uplo, const char* trans, const char* diag, const i64* n, const dcomplex* ap, dcomplex* x,
           const i64* incx);

}  // namespace orv::plain
