// SSSE3 kernels of the real triangular solve: 4 x 4 tiles of 128-bit registers.
#include <immintrin.h>

#include "level3/kernels/trsm_kernel.h"

namespace orv::mc {

#include "level3/kernels/gemm_lanes.inc"
#include "level3/kernels/trsm_direct.inc"
#include "level3/kernels/trsm_solve.inc"

extern const TrsmKernels kTrsmKernels = TrsmTiles<Lane<2>, 4, 4, 2>::kernels();

}  // namespace orv::mc
