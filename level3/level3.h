// Level-3 routines, plain single-thread members, in single (s, c) and
// double (d, z) precision: each precision's members are instances of the
// same algorithm.
//
// Argument lists are those of the standard routines, every argument by
// address, with the exports' widened 64-bit integers. Arguments arrive
// validated; option letters are read at their first character, in either case.
// Matrices are column-major: element (i, j) of X lies at x[i + j * ldx].
#pragma once

#include "service/types.h"

namespace orv::plain {

// C := alpha * op(A) * op(B) + beta * C
void sgemm(const char* transa, const char* transb, const i64* m, const i64* n, const i64* k, const float* alpha,
           const float* a, const i64* lda, const float* b, const i64* ldb, const float* beta, float* c, const i64* ldc);
void dgemm(const char* transa, const char* transb, const i64* m, const i64* n, const i64* k, const double* alpha,
           const double* a, const i64* lda, const double* b, const i64* ldb, const double* beta, double* c,
           const i64* ldc);
void cgemm(const char* transa, const char* transb, const i64* m, const i64* n, const i64* k, const fcomplex* alpha,
           const fcomplex* a, const i64* lda, const fcomplex* b, const i64* ldb, const fcomplex* beta, fcomplex* c,
           const i64* ldc);
void zgemm(const char* transa, const char* transb, const i64* m, const i64* n, const i64* k, const dcomplex* alpha,
           const dcomplex* a, const i64* lda, const dcomplex* b, const i64* ldb, const dcomplex* beta, dcomplex* c,
           const i64* ldc);

// C := alpha * A * B + beta * C (side L) or alpha * B * A + beta * C (side R),
// A symmetric (Hermitian for hemm) and stored in its uplo triangle.
void ssymm(const char* side, const char* uplo, const i64* m, const i64* n, const float* alpha, const float* a,
           const i64* lda, const float* b, const i64* ldb, const float* beta, float* c, const i64* ldc);
void dsymm(const char* side, const char* uplo, const i64* m, const i64* n, const double* alpha, const double* a,
           const i64* lda, const double* b, const i64* ldb, const double* beta, double* c, const i64* ldc);
void csymm(const char* side, const char* uplo, const i64* m, const i64* n, const fcomplex* alpha, const fcomplex* a,
           const i64* lda, const fcomplex* b, const i64* ldb, const fcomplex* beta, fcomplex* c, const i64* ldc);
void zsymm(const char* side, const char* uplo, const i64* m, const i64* n, const dcomplex* alpha, const dcomplex* a,
           const i64* lda, const dcomplex* b, const i64* ldb, const dcomplex* beta, dcomplex* c, const i64* ldc);
void chemm(const char* side, const char* uplo, const i64* m, const i64* n, const fcomplex* alpha, const fcomplex* a,
           const i64* lda, const fcomplex* b, const i64* ldb, const fcomplex* beta, fcomplex* c, const i64* ldc);
void zhemm(const char* side, const char* uplo, const i64* m, const i64* n, const dcomplex* alpha, const dcomplex* a,
           const i64* lda, const dcomplex* b, const i64* ldb, const dcomplex* beta, dcomplex* c, const i64* ldc);

// C := alpha * op(A) * op(A)^T + beta * C (^H and real alpha and beta for herk),
// uplo triangle of C only.
void ssyrk(const char* uplo, const char* trans, const i64* n, const i64* k, const float* alpha, const float* a,
           const i64* lda, const float* beta, float* c, const i64* ldc);
void dsyrk(const char* uplo, const char* trans, const i64* n, const i64* k, const double* alpha, const double* a,
           const i64* lda, const double* beta, double* c, const i64* ldc);
void csyrk(const char* uplo, const char* trans, const i64* n, const i64* k, const fcomplex* alpha, const fcomplex* a,
           const i64* lda, const fcomplex* beta, fcomplex* c, const i64* ldc);
void zsyrk(const char* uplo, const char* trans, const i64* n, const i64* k, const dcomplex* alpha, const dcomplex* a,
           const i64* lda, const dcomplex* beta, dcomplex* c, const i64* ldc);
void cherk(const char* uplo, const char* trans, const i64* n, const i64* k, const float* alpha, const fcomplex* a,
           const i64* lda, const float* beta, fcomplex* c, const i64* ldc);
void zherk(const char* uplo, const char* trans, const i64* n, const i64* k, const double* alpha, const dcomplex* a,
           const i64* lda, const double* beta, dcomplex* c, const i64* ldc);

// C := alpha * op(A) * op(B)^T + alpha * op(B) * op(A)^T + beta * C
// (her2k: alpha * op(A) * op(B)^H + conj(alpha) * op(B) * op(A)^H + beta * C, beta real).
void ssyr2k(const char* uplo, const char* trans, const i64* n, const i64* k, const float* alpha, const float* a,
            const i64* lda, const float* b, const i64* ldb, const float* beta, float* c, const i64* ldc);
void dsyr2k(const char* uplo, const char* trans, const i64* n, const i64* k, const double* alpha, const double* a,
            const i64* lda, const double* b, const i64* ldb, const double* beta, double* c, const i64* ldc);
void csyr2k(const char* uplo, const char* trans, const i64* n, const i64* k, const fcomplex* alpha, const fcomplex* a,
            const i64* lda, const fcomplex* b, const i64* ldb, const fcomplex* beta, fcomplex* c, const i64* ldc);
void zsyr2k(const char* uplo, const char* trans, const i64* n, const i64* k, const dcomplex* alpha,
            const dcomplex* a, const i64* lda, const dcomplex* b, const i64* ldb, const dcomplex* beta, dcomplex* c,
            const i64* ldc);
void cher2k(const char* uplo, const char* trans, const i64* n, const i64* k, const fcomplex* alpha, const fcomplex* a,
            const i64* lda, const fcomplex* b, const i64* ldb, const float* beta, fcomplex* c, const i64* ldc);
void zher2k(const char* uplo, const char* trans, const i64* n, const i64* k, const dcomplex* alpha,
            const dcomplex* a, const i64* lda, const dcomplex* b, const i64* ldb, const double* beta, dcomplex* c,
            const i64* ldc);

// B := alpha * op(A) * B (side L) or alpha * B * op(A) (side R), A triangular.
void strmm(const char* side, const char* uplo, const char* transa, const char* diag, const i64* m, const i64* n,
           const float* alpha, const float* a, const i64* lda, float* b, const i64* ldb);
void dtrmm(const char* side, const char* uplo, const char* transa, const char* diag, const i64* m, const i64* n,
           const double* alpha, const double* a, const i64* lda, double* b, const i64* ldb);
void ctrmm(const char* side, const char* uplo, const char* transa, const char* diag, const i64* m, const i64* n,
           const fcomplex* alpha, const fcomplex* a, const i64* lda, fcomplex* b, const i64* ldb);
void ztrmm(const char* side, const char* uplo, const char* transa, const char* diag, const i64* m, const i64* n,
           const dcomplex* alpha, const dcomplex* a, const i64* lda, dcomplex* b, const i64* ldb);

// Solves op(A) * X = alpha * B (side L) or X * op(A) = alpha * B (side R),
// A triangular; X overwrites B.
void strsm(const char* side, const char* uplo, const char* transa, const char* diag, const i64* m, const i64* n,
           const float* alpha, const float* a, const i64* lda, float* b, const i64* ldb);
void dtrsm(const char* side, const char* uplo, const char* transa, const char* diag, const i64* m, const i64* n,
           const double* alpha, const double* a, const i64* lda, double* b, const i64* ldb);
void ctrsm(const char* side, const char* uplo, const char* transa, const char* diag, const i64* m, const i64* n,
           const fcomplex* alpha, const fcomplex* a, const i64* lda, fcomplex* b, const i64* ldb);
void ztrsm(const char* side, const char* uplo, const char* transa, const char* diag, const i64* m, const i64* n,
           const dcomplex* alpha, const dcomplex* a, const i64* lda, dcomplex* b, const i64* ldb);

}  // namespace orv::plain
