// Baseline (SSE2) kernels of the real triangular solve: 4 x 4 tiles of 128-bit
// registers; packed B and the packed triangle hold every value twice, as the
// GEMM kernel of this path wants, and side L solves each column of B twice.
#include <immintrin.h>

#include "level3/kernels/trsm_kernel.h"

namespace orv::def {

#include "level3/kernels/gemm_lanes.inc"
#include "level3/kernels/trsm_direct.inc"
#include "level3/kernels/trsm_solve.inc"

extern const TrsmKernels kTrsmKernels = TrsmTiles<Lane<2>, 4, 4, 2>::kernels();

}  // namespace orv::def
