// The small-product kernel of the avx2 path: 256-bit fused multiply-adds on
// tiles of up to twelve accumulators, A and B read in place.
#include <immintrin.h>

#include "level3/kernels/gemm_small.h"

namespace orv::avx2 {

#include "level3/kernels/gemm_small.inc"

void gemm_small(bool ta, bool tb, i64 m, i64 n, i64 k, double alpha, const double* a, i64 lda, const double* b,
                i64 ldb, double beta, double* c, i64 ldc)
{
    small_product(ta, tb, m, n, k, alpha, a, lda, b, ldb, beta, c, ldc);
}

}  // namespace orv::avx2
