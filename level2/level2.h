// Level-2 routines, plain single-thread members.
//
// Argument lists are those of the standard routines, every argument by
// address, with the exports' widened 64-bit integers. Arguments arrive
// validated; option letters are read at their first character, in either case,
// and for the real routines 'C' means 'T'. Matrices are column-major: element
// (i, j) of A lies at a[i + j * lda]; band and packed storage as the standard
// defines it. Vectors with a negative increment are walked from their far end.
#pragma once

#include "service/types.h"

namespace orv::cnr {

// y := alpha * op(A) * x + beta * y
void dgemv(const char* trans, const i64* m, const i64* n, const double* alpha, const double* a, const i64* lda,
           const double* x, const i64* incx, const double* beta, double* y, const i64* incy);
void zgemv(const char* trans, const i64* m, const i64* n, const dcomplex* alpha, const dcomplex* a, const i64* lda,
           const dcomplex* x, const i64* incx, const dcomplex* beta, dcomplex* y, const i64* incy);

// y := alpha * op(A) * x + beta * y, A an m x n band matrix with kl sub- and ku super-diagonals.
void dgbmv(const char* trans, const i64* m, const i64* n, const i64* kl, const i64* ku, const double* alpha,
           const double* a, const i64* lda, const double* x, const i64* incx, const double* beta, double* y,
           const i64* incy);
void zgbmv(const char* trans, const i64* m, const i64* n, const i64* kl, const i64* ku, const dcomplex* alpha,
           const dcomplex* a, const i64* lda, const dcomplex* x, const i64* incx, const dcomplex* beta, dcomplex* y,
           const i64* incy);

// A := alpha * x * y^T + A (zgerc: alpha * x * y^H + A)
void dger(const i64* m, const i64* n, const double* alpha, const double* x, const i64* incx, const double* y,
          const i64* incy, double* a, const i64* lda);
void zgeru(const i64* m, const i64* n, const dcomplex* alpha, const dcomplex* x, const i64* incx, const dcomplex* y,
           const i64* incy, dcomplex* a, const i64* lda);
void zgerc(const i64* m, const i64* n, const dcomplex* alpha, const dcomplex* x, const i64* incx, const dcomplex* y,
           const i64* incy, dcomplex* a, const i64* lda);

// y := alpha * A * x + beta * y, A symmetric (Hermitian for the z-routines),
// stored in its uplo triangle: full (symv, hemv), band (sbmv, hbmv) or packed (spmv, hpmv).
void dsymv(const char* uplo, const i64* n, const double* alpha, const double* a, const i64* lda, const double* x,
           const i64* incx, const double* beta, double* y, const i64* incy);
void zhemv(const char* uplo, const i64* n, const dcomplex* alpha, const dcomplex* a, const i64* lda,
           const dcomplex* x, const i64* incx, const dcomplex* beta, dcomplex* y, const i64* incy);
void dsbmv(const char* uplo, const i64* n, const i64* k, const double* alpha, const double* a, const i64* lda,
           const double* x, const i64* incx, const double* beta, double* y, const i64* incy);
void zhbmv(const char* uplo, const i64* n, const i64* k, const dcomplex* alpha, const dcomplex* a, const i64* lda,
           const dcomplex* x, const i64* incx, const dcomplex* beta, dcomplex* y, const i64* incy);
void dspmv(const char* uplo, const i64* n, const double* alpha, const double* ap, const double* x, const i64* incx,
           const double* beta, double* y, const i64* incy);
void zhpmv(const char* uplo, const i64* n, const dcomplex* alpha, const dcomplex* ap, const dcomplex* x,
           const i64* incx, const dcomplex* beta, dcomplex* y, const i64* incy);

// A := alpha * x * x^T + A (x^H for the z-routines; alpha is real in both),
// uplo triangle only, full (syr, her) or packed (spr, hpr).
void dsyr(const char* uplo, const i64* n, const double* alpha, const double* x, const i64* incx, double* a,
          const i64* lda);
void zher(const char* uplo, const i64* n, const double* alpha, const dcomplex* x, const i64* incx, dcomplex* a,
          const i64* lda);
void dspr(const char* uplo, const i64* n, const double* alpha, const double* x, const i64* incx, double* ap);
void zhpr(const char* uplo, const i64* n, const double* alpha, const dcomplex* x, const i64* incx, dcomplex* ap);

// A := alpha * x * y^T + alpha * y * x^T + A
// (z-routines: alpha * x * y^H + conj(alpha) * y * x^H + A), uplo triangle only.
void dsyr2(const char* uplo, const i64* n, const double* alpha, const double* x, const i64* incx, const double* y,
           const i64* incy, double* a, const i64* lda);
void zher2(const char* uplo, const i64* n, const dcomplex* alpha, const dcomplex* x, const i64* incx,
           const dcomplex* y, const i64* incy, dcomplex* a, const i64* lda);
void dspr2(const char* uplo, const i64* n, const double* alpha, const double* x, const i64* incx, const double* y,
           const i64* incy, double* ap);
void zhpr2(const char* uplo, const i64* n, const dcomplex* alpha, const dcomplex* x, const i64* incx,
           const dcomplex* y, const i64* incy, dcomplex* ap);

// x := op(A) * x, A triangular: full (trmv), band with k off-diagonals (tbmv) or packed (tpmv).
void dtrmv(const char* uplo, const char* trans, const char* diag, const i64* n, const double* a, const i64* lda,
           double* x, const i64* incx);
void ztrmv(const char* uplo, const char* trans, const char* diag, const i64* n, const dcomplex* a, const i64* lda,
           dcomplex* x, const i64* incx);
void dtbmv(const char* uplo, const char* trans, const char* diag, const i64* n, const i64* k, const double* a,
           const i64* lda, double* x, const i64* incx);
void ztbmv(const char* uplo, const char* trans, const char* diag, const i64* n, const i64* k, const dcomplex* a,
           const i64* lda, dcomplex* x, const i64* incx);
void dtpmv(const char* uplo, const char* trans, const char* diag, const i64* n, const double* ap, double* x,
           const i64* incx);
void ztpmv(const char* uplo, const char* trans, const char* diag, const i64* n, const dcomplex* ap, dcomplex* x,
           const i64* incx);

// Solves op(A) * x = b in place (x holds b on entry), A triangular as above.
// A zero diagonal element yields infinities or NaN; it is not tested for.
void dtrsv(const char* uplo, const char* trans, const char* diag, const i64* n, const double* a, const i64* lda,
           double* x, const i64* incx);
void ztrsv(const char* uplo, const char* trans, const char* diag, const i64* n, const dcomplex* a, const i64* lda,
           dcomplex* x, const i64* incx);
void dtbsv(const char* uplo, const char* trans, const char* diag, const i64* n, const i64* k, const double* a,
           const i64* lda, double* x, const i64* incx);
void ztbsv(const char* uplo, const char* trans, const char* diag, const i64* n, const i64* k, const dcomplex* a,
           const i64* lda, dcomplex* x, const i64* incx);
void dtpsv(const char* uplo, const char* trans, const char* diag, const i64* n, const double* ap, double* x,
           const i64* incx);
void ztpsv(const char* uplo, const char* trans, const char* diag, const i64* n, const dcomplex* ap, dcomplex* x,
           const i64* incx);

}  // namespace orv::cnr
