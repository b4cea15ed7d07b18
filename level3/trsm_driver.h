// The real triangular solve of one code path: the direct kernel for small
// orders, the blocked road for the rest. The blocked road solves diagonal
// blocks of the triangle with the path's diagonal-block kernel and removes
// each solved block from the rest of B with the path's GEMM tile, the
// triangle's off-diagonal part packed with the factor -1.
#pragma once

#include "level3/gemm_path.h"
#include "level3/gemm_records.h"
#include "level3/kernels/trsm_kernel.h"
#include "level3/trsm_pack.h"

namespace orv {

// One call, options decoded, alpha already applied to B.
struct TrsmCall {
    bool left;      // op(A) * X = B; otherwise X * op(A) = B
    bool upper;     // A is stored in its upper triangle
    bool trans;     // op(A) = A^T
    bool unit;      // the diagonal is taken as ones and never read
    const char* transa;
    i64 m, n;
    const double* a;
    i64 lda;
    double* b;
    i64 ldb;
};

struct TrsmPlan;
using TrsmDriver = void (*)(const TrsmCall& call, const TrsmPlan& plan, const BlockPlan& blocks);

// The routines of one blocked solve.
struct TrsmPlan {
    PackTriangle<double> pack_triangle;  // unit or not
    TrsmBlockSolve solve;                // the driver's diagonal-block kernel
    TrsmDriver driver;                   // side x whether op(A) is upper
    PackA<double> pack_rows;  // side L: -op(A) below (above) the block; side R: the rows of B
    PackB<double> pack_cols;  // side L: the columns of B; side R: -op(A) right (left) of the block
    i64 chunk;        // chunk width of the packed triangle
    KernelParams params;
    const GemmTile* tile;
    BlockSizes block_sizes;
    TrsmDirect direct;  // the solve without a buffer
};

// Fills `plan` for `call` on `path` with its kernels.
void plan_trsm(const GemmPath& path, const TrsmKernels& kernels, const TrsmCall& call, TrsmPlan* plan);

// The blocks of a solve: those of a product with the order as its inner
// dimension, with room for the packed triangle after packed A.
void trsm_blocks(const TrsmCall& call, const TrsmPlan& plan, BlockPlan* blocks);

// Whether the order is small enough for the direct kernel.
bool trsm_direct_order(i64 order);

// op(A) * X = alpha * B or X * op(A) = alpha * B on `path`, arguments as the
// dispatched member receives them.
void routed_dtrsm(const GemmPath& path, const TrsmKernels& kernels, const char* side, const char* uplo,
                  const char* transa, const char* diag, const i64* m, const i64* n, const double* alpha,
                  const double* a, const i64* lda, double* b, const i64* ldb);

template <const GemmPath& Path, const TrsmKernels& Kernels>
void dtrsm_member(const char* side, const char* uplo, const char* transa, const char* diag, const i64* m,
                  const i64* n, const double* alpha, const double* a, const i64* lda, double* b, const i64* ldb)
{
    routed_dtrsm(Path, Kernels, side, uplo, transa, diag, m, n, alpha, a, lda, b, ldb);
}

}  // namespace orv
