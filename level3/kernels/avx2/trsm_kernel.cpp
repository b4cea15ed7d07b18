// AVX2 kernels of the real triangular solve: the 12 x 4 tile on side R, 4 x 12
// (one vector of B's columns against 12 unknowns) on side L; the direct side L
// takes 8 columns against 6 unknowns.
// The complex solve: on side R the complex 4 x 3 tile, 3 unknowns a chunk;
// on side L the three columns of a panel broadcast against chunks of 4.
#include <immintrin.h>

#include "level3/kernels/trsm_kernel.h"

namespace orv::avx2 {

#include "level3/kernels/gemm_lanes.inc"
#include "level3/kernels/trsm_direct.inc"
#include "level3/kernels/trsm_solve.inc"
#include "level3/kernels/trsm_complex.inc"

using Real = TrsmTiles<Lane<4>, 12, 4, 1, 12, 8, 2, 6>;
using ComplexSolves = ComplexTrsmTiles<Lane<4>, 4, 3, 3, 4, true>;
extern const TrsmKernels kTrsmKernels = {Real::solves(), ComplexSolves::solves(), &Real::direct};

}  // namespace orv::avx2
