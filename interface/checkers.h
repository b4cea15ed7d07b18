// Argument checkers of the level-2 and level-3 exports.
//
// One checker per argument-list shape; the routines of a shape (s, d, c and z)
// share it because their parameter positions are the same. Each takes the 6-character
// blank-padded routine name for the report and the caller's own (32-bit)
// arguments, tests option letters first and then the integers, each in
// argument order, reports the first failure through the error-hook slot and
// returns 1; it returns 0 when everything is valid.
#pragma once

namespace orv {

// Option sets for the rank-k routines, whose trans letters differ by routine.
inline constexpr const char* kTransNTC = "NTC";  // dsyrk, dsyr2k
inline constexpr const char* kTransNT = "NT";    // zsyrk, zsyr2k
inline constexpr const char* kTransNC = "NC";    // zherk, zher2k

int check_gemm(const char* name, const char* transa, const char* transb, const int* m, const int* n, const int* k,
               const int* lda, const int* ldb, const int* ldc);
int check_gemv(const char* name, const char* trans, const int* m, const int* n, const int* lda, const int* incx,
               const int* incy);
int check_gbmv(const char* name, const char* trans, const int* m, const int* n, const int* kl, const int* ku,
               const int* lda, const int* incx, const int* incy);
int check_ger(const char* name, const int* m, const int* n, const int* incx, const int* incy, const int* lda);
int check_symv(const char* name, const char* uplo, const int* n, const int* lda, const int* incx, const int* incy);
int check_sbmv(const char* name, const char* uplo, const int* n, const int* k, const int* lda, const int* incx,
               const int* incy);
int check_spmv(const char* name, const char* uplo, const int* n, const int* incx, const int* incy);
int check_syr(const char* name, const char* uplo, const int* n, const int* incx, const int* lda);
int check_syr2(const char* name, const char* uplo, const int* n, const int* incx, const int* incy, const int* lda);
int check_spr(const char* name, const char* uplo, const int* n, const int* incx);
int check_spr2(const char* name, const char* uplo, const int* n, const int* incx, const int* incy);
int check_trmv(const char* name, const char* uplo, const char* trans, const char* diag, const int* n, const int* lda,
               const int* incx);
int check_tbmv(const char* name, const char* uplo, const char* trans, const char* diag, const int* n, const int* k,
               const int* lda, const int* incx);
int check_tpmv(const char* name, const char* uplo, const char* trans, const char* diag, const int* n,
               const int* incx);
int check_symm(const char* name, const char* side, const char* uplo, const int* m, const int* n, const int* lda,
               const int* ldb, const int* ldc);
int check_syrk(const char* name, const char* trans_set, const char* uplo, const char* trans, const int* n,
               const int* k, const int* lda, const int* ldc);
int check_syr2k(const char* name, const char* trans_set, const char* uplo, const char* trans, const int* n,
                const int* k, const int* lda, const int* ldb, const int* ldc);
int check_trmm(const char* name, const char* side, const char* uplo, const char* transa, const char* diag,
               const int* m, const int* n, const int* lda, const int* ldb);

}  // namespace orv
