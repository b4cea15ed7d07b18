// SSE4.2 inner kernel of the real matrix product. The three 128-bit paths
// share one kernel; each builds it with its own instructions (the newer sets
// broadcast B with one load). Without fused multiply-add every product is
// rounded and then added. The 4 x 4 tile keeps eight two-lane accumulators,
// two A vectors, a broadcast of B and the product in twelve of the sixteen
// registers; a wider tile would run out of registers in the loop.
#include <immintrin.h>

#include "level3/kernels/gemm_kernel.h"

namespace orv::mc3 {

#include "level3/kernels/gemm_lanes.inc"
#include "level3/kernels/gemm_tile.inc"

extern const GemmTile kGemmTile = make_gemm_tile<Lane<2>, 4, 4>();
extern const GemmTile kGemmTileAlt = kGemmTile;
extern const GemmTile kZgemmTile = make_complex_tile<Lane<2>, 4, 4>();

}  // namespace orv::mc3
