// The triangular solve of one code path. The blocked road, for real and
// complex elements alike, solves diagonal blocks of the triangle with the
// path's diagonal-block kernel and removes each solved block from the rest of
// B with the path's GEMM tile, the triangle's off-diagonal part packed with
// the factor -1. The real solve takes small orders to the path's direct
// kernel instead.
#pragma once

#include "level3/gemm_path.h"
#include "level3/gemm_records.h"
#include "level3/kernels/trsm_kernel.h"
#include "level3/trsm_pack.h"

namespace orv {

// One call, options decoded, alpha already applied to B.
template <class T>
struct TrsmCall {
    bool left;      // op(A) * X = B; otherwise X * op(A) = B
    bool upper;     // A is stored in its upper triangle
    bool trans;     // op(A) = A^T
    bool unit;      // the diagonal is taken as ones and never read
    const char* transa;
    i64 m, n;
    const T* a;
    i64 lda;
    T* b;
    i64 ldb;
};

template <class T>
struct TrsmPlan;
template <class T>
using TrsmDriver = void (*)(const TrsmCall<T>& call, const TrsmPlan<T>& plan, const BlockPlan& blocks);

// The routines of one blocked solve.
template <class T>
struct TrsmPlan {
    PackTriangle<T> pack_triangle;  // unit or not, conjugated or not
    i64 triangle_copies;            // times the packed triangle holds each value
    TrsmBlockSolve solve;           // the driver's diagonal-block kernel
    TrsmDriver<T> driver;           // side x whether op(A) is upper
    PackA<T> pack_rows;  // side L: -op(A) below (above) the block; side R: the rows of B
    PackB<T> pack_cols;  // side L: the columns of B; side R: -op(A) right (left) of the block
    i64 chunk;           // chunk width of the packed triangle
    KernelParams params;
    const GemmTile* tile;
    BlockSizes block_sizes;
};

// Fills `plan` for `call` on `path` with its kernels.
template <class T>
void plan_trsm(const GemmPath& path, const TrsmKernels& kernels, const TrsmCall<T>& call, TrsmPlan<T>* plan);

// The blocks of a solve: those of a product with the order as its inner
// dimension, with room for the packed triangle after packed A.
template <class T>
void trsm_blocks(const TrsmCall<T>& call, const TrsmPlan<T>& plan, BlockPlan* blocks);

// Whether the order is small enough for the direct kernel.
bool trsm_direct_order(i64 order);

// op(A) * X = alpha * B or X * op(A) = alpha * B on `path`, arguments as the
// dispatched member receives them.
void routed_dtrsm(const GemmPath& path, const TrsmKernels& kernels, const char* side, const char* uplo,
                  const char* transa, const char* diag, const i64* m, const i64* n, const double* alpha,
                  const double* a, const i64* lda, double* b, const i64* ldb);

// The complex solve: every order on the blocked road, except where a pivot's
// reciprocal would overflow or no buffer is to be had; those solves divide,
// by the element-wise loops.
void routed_ztrsm(const GemmPath& path, const TrsmKernels& kernels, const char* side, const char* uplo,
                  const char* transa, const char* diag, const i64* m, const i64* n, const dcomplex* alpha,
                  const dcomplex* a, const i64* lda, dcomplex* b, const i64* ldb);

template <const GemmPath& Path, const TrsmKernels& Kernels>
void dtrsm_member(const char* side, const char* uplo, const char* transa, const char* diag, const i64* m,
                  const i64* n, const double* alpha, const double* a, const i64* lda, double* b, const i64* ldb)
{
    routed_dtrsm(Path, Kernels, side, uplo, transa, diag, m, n, alpha, a, lda, b, ldb);
}

template <const GemmPath& Path, const TrsmKernels& Kernels>
void ztrsm_member(const char* side, const char* uplo, const char* transa, const char* diag, const i64* m,
                  const i64* n, const dcomplex* alpha, const dcomplex* a, const i64* lda, dcomplex* b, const i64* ldb)
{
    routed_ztrsm(Path, Kernels, side, uplo, transa, diag, m, n, alpha, a, lda, b, ldb);
}

}  // namespace orv
