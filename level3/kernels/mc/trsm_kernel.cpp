// SSSE3 kernels of the real triangular solve: 4 x 4 tiles of 128-bit registers.
// The complex solve: on side R the complex 2 x 2 tile, 2 unknowns a chunk;
// on side L the two columns of a panel broadcast against chunks of 2.
#include <immintrin.h>

#include "level3/kernels/trsm_kernel.h"

namespace orv::mc {

#include "level3/kernels/gemm_lanes.inc"
#include "level3/kernels/trsm_direct.inc"
#include "level3/kernels/trsm_solve.inc"
#include "level3/kernels/trsm_complex.inc"

using Real = TrsmTiles<Lane<2>, 4, 4, 2>;
using ComplexSolves = ComplexTrsmTiles<Lane<2>, 2, 2, 2, 2, true>;
extern const TrsmKernels kTrsmKernels = {Real::solves(), ComplexSolves::solves(), &Real::direct};

}  // namespace orv::mc
