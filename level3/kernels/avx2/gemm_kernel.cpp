// AVX2 inner kernels of the real matrix product: fused multiply-adds on 256-bit
// registers. The default 12 x 4 tile fills all sixteen registers (twelve
// accumulators, three A vectors, one broadcast of B); the 8 x 6 tile leaves one
// free and reads less A per multiply-add.
#include <immintrin.h>

#include "level3/kernels/gemm_kernel.h"

namespace orv::avx2 {

#include "level3/kernels/gemm_lanes.inc"
#include "level3/kernels/gemm_tile.inc"

extern const GemmTile kGemmTile = make_gemm_tile<Lane<4>, 12, 4>();
extern const GemmTile kGemmTileAlt = make_gemm_tile<Lane<4>, 8, 6>();
extern const GemmTile kZgemmTile = make_complex_tile<Lane<4>, 8, 6>();

}  // namespace orv::avx2
