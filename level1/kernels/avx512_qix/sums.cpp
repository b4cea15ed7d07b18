// Dot products, sums of magnitudes and norms of the many-core AVX-512 code path,
// in the AVX2 path's order.
#include "level1/kernels.h"
#include "level1/kernels/simd.h"

namespace orv::avx512_qix {

#include "level1/kernels/wide/avx2_order.inc"

}  // namespace orv::avx512_qix
