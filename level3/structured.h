// The level-3 routines whose operands have a shape, on the blocked frame of a
// code path: symmetric and Hermitian products, rank-k and rank-2k updates of
// a triangle of C, triangular products. Each describes its operands with
// their shape bits and runs blocked_product; the off-diagonal work is the
// path's product kernel, the blocks on a diagonal get a block routine of
// their own.
//
// The arguments are those of the standard routines, by address, validated
// upstream.
#pragma once

#include "level3/gemm_path.h"

namespace orv {

// C := alpha A B + beta C (side L) or alpha B A + beta C (side R), A symmetric
// (Herm: Hermitian) in its uplo triangle.
template <class T, bool Herm>
void structured_symm(const GemmPath& path, const char* side, const char* uplo, const i64* m, const i64* n,
                     const T* alpha, const T* a, const i64* lda, const T* b, const i64* ldb, const T* beta, T* c,
                     const i64* ldc);

// The uplo triangle of C := alpha op(A) op(A)^T + beta C (Herm: op(A)^H,
// real alpha and beta, a real diagonal).
template <class T, bool Herm, class S>
void structured_syrk(const GemmPath& path, const char* uplo, const char* trans, const i64* n, const i64* k,
                     const S* alpha, const T* a, const i64* lda, const S* beta, T* c, const i64* ldc);

// The uplo triangle of C := alpha op(A) op(B)^T + alpha op(B) op(A)^T + beta C
// (Herm: ^H, conj(alpha) on the second term, beta real, a real diagonal).
template <class T, bool Herm, class S>
void structured_syr2k(const GemmPath& path, const char* uplo, const char* trans, const i64* n, const i64* k,
                      const T* alpha, const T* a, const i64* lda, const T* b, const i64* ldb, const S* beta, T* c,
                      const i64* ldc);

// B := alpha op(A) B (side L) or alpha B op(A) (side R), A triangular.
template <class T>
void structured_trmm(const GemmPath& path, const char* side, const char* uplo, const char* transa,
                     const char* diag, const i64* m, const i64* n, const T* alpha, const T* a, const i64* lda, T* b,
                     const i64* ldb);

// The members of the build that `Path` describes.
template <const GemmPath& Path, class T, bool Herm>
void symm_member(const char* side, const char* uplo, const i64* m, const i64* n, const T* alpha, const T* a,
                 const i64* lda, const T* b, const i64* ldb, const T* beta, T* c, const i64* ldc)
{
    structured_symm<T, Herm>(Path, side, uplo, m, n, alpha, a, lda, b, ldb, beta, c, ldc);
}
template <const GemmPath& Path, class T, bool Herm, class S>
void syrk_member(const char* uplo, const char* trans, const i64* n, const i64* k, const S* alpha, const T* a,
                 const i64* lda, const S* beta, T* c, const i64* ldc)
{
    structured_syrk<T, Herm, S>(Path, uplo, trans, n, k, alpha, a, lda, beta, c, ldc);
}
template <const GemmPath& Path, class T, bool Herm, class S>
void syr2k_member(const char* uplo, const char* trans, const i64* n, const i64* k, const T* alpha, const T* a,
                  const i64* lda, const T* b, const i64* ldb, const S* beta, T* c, const i64* ldc)
{
    structured_syr2k<T, Herm, S>(Path, uplo, trans, n, k, alpha, a, lda, b, ldb, beta, c, ldc);
}
template <const GemmPath& Path, class T>
void trmm_member(const char* side, const char* uplo, const char* transa, const char* diag, const i64* m,
                 const i64* n, const T* alpha, const T* a, const i64* lda, T* b, const i64* ldb)
{
    structured_trmm<T>(Path, side, uplo, transa, diag, m, n, alpha, a, lda, b, ldb);
}

}  // namespace orv
