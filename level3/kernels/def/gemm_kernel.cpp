// SSE2 (baseline) inner kernel of the real matrix product. The three 128-bit paths
// share one kernel; each builds it with its own instructions: the newer sets
// broadcast B with one load, while SSE2 has no such load, so its packed B holds
// every value twice and a plain load of the pair is the broadcast. Without
// fused multiply-add every product is rounded and then added. The 4 x 4 tile
// keeps eight two-lane accumulators, two A vectors, the broadcast and the
// product in twelve of the sixteen registers; 4 x 6 and 8 x 2 tiles measured
// no faster.
#include <immintrin.h>

#include "level3/kernels/gemm_kernel.h"

namespace orv::def {

#include "level3/kernels/gemm_lanes.inc"
#include "level3/kernels/gemm_tile.inc"

extern const GemmTile kGemmTile = make_gemm_tile<Lane<2>, 4, 4>();
extern const GemmTile kGemmTileAlt = kGemmTile;
extern const GemmTile kZgemmTile = make_complex_tile<Lane<2>, 4, 4>();

}  // namespace orv::def
