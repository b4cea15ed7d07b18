// AVX-512 kernels of the real triangular solve: the 24 x 8 tile on side R, 8 x 12
// (one vector of B's columns against 12 unknowns) on side L, and the direct
// side L 16 columns against 12 unknowns.
// The complex solve: on side R the complex 12 x 4 tile, 4 unknowns a chunk;
// on side L one vector of a panel's 4 columns against 12 unknowns.
#include <immintrin.h>

#include "level3/kernels/trsm_kernel.h"

namespace orv::avx512 {

#include "level3/kernels/gemm_lanes.inc"
#include "level3/kernels/trsm_direct.inc"
#include "level3/kernels/trsm_solve.inc"
#include "level3/kernels/trsm_complex.inc"

using Real = TrsmTiles<Lane<8>, 24, 8, 1, 12, 16, 2, 12>;
using ComplexSolves = ComplexTrsmTiles<Lane<8>, 12, 4, 1, 12, false>;
extern const TrsmKernels kTrsmKernels = {Real::solves(), ComplexSolves::solves(), &Real::direct};

}  // namespace orv::avx512
