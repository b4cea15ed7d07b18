// The small-product kernel of the avx512_qix path: 256-bit fused
// multiply-adds on tiles of up to twelve accumulators, A and B read in
// place. It serves the thin road and the fall-back, whose elements must get
// the fused sums of the path's 512-bit tiles; these processors have AVX2 and
// FMA as well.
#include <immintrin.h>

#include "level3/kernels/gemm_small.h"

namespace orv::avx512_qix {

#include "level3/kernels/gemm_small.inc"

void gemm_small(bool ta, bool tb, i64 m, i64 n, i64 k, double alpha, const double* a, i64 lda, const double* b,
                i64 ldb, double beta, double* c, i64 ldc)
{
    small_product(ta, tb, m, n, k, alpha, a, lda, b, ldb, beta, c, ldc);
}

}  // namespace orv::avx512_qix
