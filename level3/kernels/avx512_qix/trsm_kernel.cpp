// Kernels of the real triangular solve for the many-core AVX-512 processors: the
// 8 x 28 tile on side R, 28 x 8 on side L (three vectors and a half).
#include <immintrin.h>

#include "level3/kernels/trsm_kernel.h"

namespace orv::avx512_qix {

#include "level3/kernels/gemm_lanes.inc"
#include "level3/kernels/trsm_direct.inc"
#include "level3/kernels/trsm_solve.inc"

extern const TrsmKernels kTrsmKernels = TrsmTiles<Lane<8>, 8, 28, 3>::kernels();

}  // namespace orv::avx512_qix
