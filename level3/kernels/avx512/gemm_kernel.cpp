// AVX-512 inner kernels of the real matrix product. The default 24 x 8 tile
// holds its accumulators in 24 of the 32 registers and three A vectors in
// three more: 24 fused multiply-adds per value of k against 3 loads of A, each
// multiply-add broadcasting its B value from memory. The 8 x 6 alternative
// suits narrow blocks.
#include <immintrin.h>

#include "level3/kernels/gemm_kernel.h"

namespace orv::avx512 {

#include "level3/kernels/gemm_lanes.inc"
#include "level3/kernels/gemm_tile.inc"

extern const GemmTile kGemmTile = make_gemm_tile<Lane<8>, 24, 8>();
extern const GemmTile kGemmTileAlt = make_gemm_tile<Lane<8>, 8, 6>();
extern const GemmTile kZgemmTile = make_complex_tile<Lane<8>, 24, 8>();

}  // namespace orv::avx512
