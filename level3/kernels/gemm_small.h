// The kernels of the products that read A and B where they lie (the direct,
// tiny and thin roads, and the blocked driver's fall-back). One call is one
// k-block: C := beta * C + (alpha * op(A)) * op(B), computed element by
// element as the blocked road's tiles compute it: C scaled by beta first (1
// leaves it as it is, 0 clears it without reading it), one sum over k in
// order starting from +0 of the rounded alpha * a(i, l) times b(l, j), then
// the sum added. They take m, n, k >= 1 and alpha != 0 (the caller handles
// the rest); ta and tb tell whether op transposes. The fused kernels take k
// up to 256, the deepest k-block of their paths.
#pragma once

#include "service/types.h"

namespace orv {

// How a kernel folds alpha into A: alpha 1 leaves A as it is; alpha -1 turns
// each multiply-add into a multiply-subtract, which gives exactly the bits of
// adding the negated A; any other alpha multiplies each value of A.
enum class AlphaFold { one, minus_one, any };

using GemmSmallKernel = void (*)(bool ta, bool tb, i64 m, i64 n, i64 k, double alpha, const double* a, i64 lda,
                                 const double* b, i64 ldb, double beta, double* c, i64 ldc);

// The fused kernels of the paths with fused multiply-add.
namespace avx2 {
void gemm_small(bool ta, bool tb, i64 m, i64 n, i64 k, double alpha, const double* a, i64 lda, const double* b,
                i64 ldb, double beta, double* c, i64 ldc);
}  // namespace avx2
namespace avx512_qix {
void gemm_small(bool ta, bool tb, i64 m, i64 n, i64 k, double alpha, const double* a, i64 lda, const double* b,
                i64 ldb, double beta, double* c, i64 ldc);
}  // namespace avx512_qix
namespace avx512 {
void gemm_small(bool ta, bool tb, i64 m, i64 n, i64 k, double alpha, const double* a, i64 lda, const double* b,
                i64 ldb, double beta, double* c, i64 ldc);
}  // namespace avx512

}  // namespace orv
