// AVX inner kernel of the real matrix product: 256-bit registers without
// fused multiply-add, so every product is rounded and then added. The 8 x 4
// tile keeps eight accumulators, enough independent sums to cover the
// latency of one add per cycle, and leaves room in the sixteen registers for
// two A vectors, a broadcast of B and the product (a 12 x 4 tile would need
// seventeen and spill in the loop).
#include <immintrin.h>

#include "level3/kernels/gemm_kernel.h"

namespace orv::avx {

#include "level3/kernels/gemm_lanes.inc"
#include "level3/kernels/gemm_tile.inc"

extern const GemmTile kGemmTile = make_gemm_tile<Lane<4>, 8, 4>();
extern const GemmTile kGemmTileAlt = kGemmTile;
extern const GemmTile kZgemmTile = make_complex_tile<Lane<4>, 8, 4>();

}  // namespace orv::avx
