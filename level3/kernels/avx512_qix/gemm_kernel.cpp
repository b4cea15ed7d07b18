// Inner kernels of the real matrix product for the many-core AVX-512
// processors (foundation instructions only). The default 8 x 28 tile is one
// vector of A against 28 values of B, 28 accumulators: the in-order cores
// hide the multiply-add latency only with that many independent sums.
// The narrow remainder rows use 128- and 256-bit registers, of which only
// sixteen are reachable without the vector-length extension; their wide
// panels are taken in column groups that fit.
#include <immintrin.h>

#include "level3/kernels/gemm_kernel.h"

namespace orv::avx512_qix {

#include "level3/kernels/gemm_lanes.inc"
#include "level3/kernels/gemm_tile.inc"

extern const GemmTile kGemmTile = make_gemm_tile<Lane<8>, 8, 28>();
extern const GemmTile kGemmTileAlt = make_gemm_tile<Lane<8>, 24, 8>();
extern const GemmTile kZgemmTile = make_complex_tile<Lane<8>, 8, 28>();

}  // namespace orv::avx512_qix
