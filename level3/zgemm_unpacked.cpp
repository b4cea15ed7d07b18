// The complex products that read A and B in place on the paths without fused
// multiply-add: each product rounded before it is added, as their tiles do.
// Baseline code, so that it gives the same bits on every processor.
#include "level3/kernels/gemm_small.h"

namespace orv {
namespace {

inline double madd(double sum, double x, double y) { return sum + x * y; }

#include "level3/kernels/zgemm_unpacked.inc"

}  // namespace

void zgemm_unpacked_unfused(char ta, char tb, i64 m, i64 n, i64 k, const double* alpha, const double* a, i64 lda,
                            const double* b, i64 ldb, bool store, double* c, i64 ldc)
{
    zgemm_unpacked_kernel(ta, tb, m, n, k, alpha, a, lda, b, ldb, store, c, ldc);
}

}  // namespace orv
