// AVX2 kernels of the real triangular solve: the 12 x 4 tile on side R, 4 x 12
// (one vector of B's columns against 12 unknowns) on side L; the direct side L
// takes 8 columns against 6 unknowns.
// The complex solve: the complex 4 x 3 tile: 3 unknowns a chunk on side R, 6 on side L.
#include <immintrin.h>

#include "level3/kernels/trsm_kernel.h"

namespace orv::avx2 {

#include "level3/kernels/gemm_lanes.inc"
#include "level3/kernels/trsm_direct.inc"
#include "level3/kernels/trsm_solve.inc"
#include "level3/kernels/trsm_complex.inc"

using Real = TrsmTiles<Lane<4>, 12, 4, 1, 12, 8, 2, 6>;
extern const TrsmKernels kTrsmKernels = {Real::solves(), ComplexTrsmTiles<Lane<4>, 4, 3, 3, 4, true>::solves(), &Real::direct};

}  // namespace orv::avx2
