// The blocked, packed product: C is cut into row blocks, the inner dimension
// into k-blocks and the columns into slices; each slice of op(B) and each row
// panel of op(A) is packed once per k-block and handed to the inner kernel.
#pragma once

#include "level3/gemm_path.h"
#include "level3/gemm_records.h"

namespace orv {

// c := beta * c over m x n. Beta 0 stores zeros without reading c, so NaN or
// infinity left in C does not survive; beta 1 leaves c alone.
void scale_c(i64 m, i64 n, double beta, double* c, i64 ldc);

// The standard block routine: the tile's store kernel when beta is 0, its
// accumulate kernel otherwise (beta is then 1: C was scaled beforehand).
void run_block(const GemmTile* tile, i64 m, i64 n, i64 k, const double* a, const double* b, double* c, i64 ldc,
               double beta);

// Fills `plan` with the routines of a plain product on `path` with the tile
// that `params` settled: packers by the operands' storage, the block
// routine, the unpacked fall-back and the path's block sizes.
void plan_gemm(const GemmPath& path, const GemmOp& op, const MatrixDesc& a, const MatrixDesc& b,
               const KernelParams& params, GemmPlan* plan);

// C := alpha * op(A) * op(B) + beta * C with the sizes taken from the views
// (C m x n, A m x k). With a caller's block plan its buffer is used and kept;
// otherwise a buffer is acquired and released here. Without a buffer the
// plan's unpacked fall-back computes the whole product.
void blocked_driver(const GemmOp* op, const MatrixDesc* a, const MatrixDesc* b, const MatrixDesc* c,
                    const BlockPlan* caller_plan, const GemmPlan* plan);

}  // namespace orv
