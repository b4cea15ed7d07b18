// SSSE3 kernels of the real triangular solve: 4 x 4 tiles of 128-bit registers.
// The complex solve: the complex 2 x 2 tile, 2 unknowns a chunk.
#include <immintrin.h>

#include "level3/kernels/trsm_kernel.h"

namespace orv::mc {

#include "level3/kernels/gemm_lanes.inc"
#include "level3/kernels/trsm_direct.inc"
#include "level3/kernels/trsm_solve.inc"
#include "level3/kernels/trsm_complex.inc"

using Real = TrsmTiles<Lane<2>, 4, 4, 2>;
extern const TrsmKernels kTrsmKernels = {Real::solves(), ComplexTrsmTiles<Lane<2>, 2, 2, 2, 2, true>::solves(), &Real::direct};

}  // namespace orv::mc
