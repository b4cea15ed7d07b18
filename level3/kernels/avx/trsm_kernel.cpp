// AVX kernels of the real triangular solve (no fused multiply-add): the 8 x 4
// tile on side R, 4 x 8 on side L; the direct side L takes 8 columns against 4
// unknowns.
// The complex solve: the complex 4 x 2 tile: 2 unknowns a chunk on side R, 6 on side L.
#include <immintrin.h>

#include "level3/kernels/trsm_kernel.h"

namespace orv::avx {

#include "level3/kernels/gemm_lanes.inc"
#include "level3/kernels/trsm_direct.inc"
#include "level3/kernels/trsm_solve.inc"
#include "level3/kernels/trsm_complex.inc"

using Real = TrsmTiles<Lane<4>, 8, 4, 1, 8, 8, 2, 4>;
extern const TrsmKernels kTrsmKernels = {Real::solves(), ComplexTrsmTiles<Lane<4>, 4, 2, 2, 4, true>::solves(), &Real::direct};

}  // namespace orv::avx
