// The blocked, packed product: C is cut into row blocks, the inner dimension
// into k-blocks and the columns into slices; each slice of op(B) and each row
// panel of op(A) is packed once per k-block and handed to the block routine,
// which runs the inner kernel. Real and complex products, and the level-3
// routines whose operands are symmetric, Hermitian or triangular, all run
// this one driver.
#pragma once

#include "level3/gemm_records.h"

namespace orv {

// c := beta * c over m x n. Beta 0 stores zeros without reading c, so NaN or
// infinity left in C does not survive; beta 1 leaves c alone.
template <class T>
void scale_c(i64 m, i64 n, T beta, T* c, i64 ldc);

// The standard block routine: the tile's store kernel for a block that
// stores, its accumulate kernel otherwise.
template <class T>
void run_block(const BlockTask<T>& task);

// A plan on `path` with the packers for the operands' kinds, the standard
// block routine, `tile` (whose record `params` settled) and `fallback`.
template <class T>
GemmPlan<T> plan_product(const GemmPath& path, const KernelParams& params, const GemmTile* tile,
                         FallbackRoutine<T> fallback);

// C := alpha * op(A) * op(B) + beta * C with the sizes taken from the views
// (C m x n, A m x k). With a caller's block plan its buffer is used and kept;
// otherwise a buffer is acquired and released here. Without a buffer the
// plan's fall-back computes the whole product.
template <class T>
void blocked_driver(const GemmOp<T>* op, const MatrixDesc<T>* a, const MatrixDesc<T>* b, const MatrixDesc<T>* c,
                    const BlockPlan* caller_plan, const GemmPlan<T>* plan);

}  // namespace orv
