// The kernel of the products that read A and B where they lie on the paths
// without fused multiply-add (see gemm_small.h for what one call computes):
// baseline code, so that it gives the same bits on every processor.
#pragma once

#include "service/types.h"

namespace orv {

void gemm_small_unfused(bool ta, bool tb, i64 m, i64 n, i64 k, double alpha, const double* a, i64 lda,
                        const double* b, i64 ldb, double beta, double* c, i64 ldc);

}  // namespace orv
