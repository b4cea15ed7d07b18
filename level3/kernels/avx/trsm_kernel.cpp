// AVX kernels of the real triangular solve (no fused multiply-add): the 8 x 4
// tile on side R, 4 x 8 on side L; the direct side L takes 8 columns against 4
// unknowns.
#include <immintrin.h>

#include "level3/kernels/trsm_kernel.h"

namespace orv::avx {

#include "level3/kernels/gemm_lanes.inc"
#include "level3/kernels/trsm_direct.inc"
#include "level3/kernels/trsm_solve.inc"

extern const TrsmKernels kTrsmKernels = TrsmTiles<Lane<4>, 8, 4, 1, 8, 8, 2, 4>::kernels();

}  // namespace orv::avx
