// The complex products of the avx2 path that read A and B in place, with
// the fused multiply-adds of its complex tiles.
#include "level3/kernels/gemm_small.h"

namespace orv::avx2 {
namespace {

[[gnu::always_inline]] inline double madd(double sum, double x, double y) { return __builtin_fma(x, y, sum); }

#include "level3/kernels/zgemm_unpacked.inc"

}  // namespace

void zgemm_unpacked(char ta, char tb, i64 m, i64 n, i64 k, const double* alpha, const double* a, i64 lda,
                    const double* b, i64 ldb, bool store, double* c, i64 ldc)
{
    zgemm_unpacked_kernel(ta, tb, m, n, k, alpha, a, lda, b, ldb, store, c, ldc);
}

}  // namespace orv::avx2
