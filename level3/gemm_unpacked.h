// The baseline kernels of the products that read A and B where they lie:
// the same bits on every processor. The real one serves the paths without
// fused multiply-add (see gemm_small.h for what one call computes).
#pragma once

#include "service/types.h"

namespace orv {

void gemm_small_unfused(bool ta, bool tb, i64 m, i64 n, i64 k, double alpha, const double* a, i64 lda,
                        const double* b, i64 ldb, double beta, double* c, i64 ldc);

// The complex products that read A and B where they lie, on every path
// (zgemm_unpacked.cpp): one k-block, C += (store: =) (alpha op(A)) op(B), each
// product rounded before it is added, as the complex tiles do; alpha and the
// elements as pairs of doubles; ta and tb the folded letters 'N', 'T' or 'C'.
void zgemm_unpacked(char ta, char tb, i64 m, i64 n, i64 k, const double* alpha, const double* a, i64 lda,
                    const double* b, i64 ldb, bool store, double* c, i64 ldc);

}  // namespace orv
