// The small-product kernels of the wide code paths: C := alpha * op(A) * op(B)
// + beta * C read straight from the caller's arrays. They take m, n, k >= 1
// and alpha != 0 (the caller handles the rest); ta and tb tell whether op
// transposes; beta 0 stores without reading C.
#pragma once

#include "service/types.h"

namespace orv {

using GemmSmallKernel = void (*)(bool ta, bool tb, i64 m, i64 n, i64 k, double alpha, const double* a, i64 lda,
                                 const double* b, i64 ldb, double beta, double* c, i64 ldc);

namespace avx2 {
void gemm_small(bool ta, bool tb, i64 m, i64 n, i64 k, double alpha, const double* a, i64 lda, const double* b,
                i64 ldb, double beta, double* c, i64 ldc);
}  // namespace avx2
namespace avx512 {
void gemm_small(bool ta, bool tb, i64 m, i64 n, i64 k, double alpha, const double* a, i64 lda, const double* b,
                i64 ldb, double beta, double* c, i64 ldc);
}  // namespace avx512

}  // namespace orv
