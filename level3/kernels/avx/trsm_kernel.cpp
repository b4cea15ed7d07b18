// AVX kernels of the real triangular solve (no fused multiply-add): the 8 x 4
// tile on side R, 4 x 8 on side L; the direct side L takes 8 columns against 4
// unknowns.
// The complex solve: on side R the complex 4 x 2 tile, 2 unknowns a chunk;
// on side L the two columns of a panel broadcast against chunks of 4.
#include <immintrin.h>

#include "level3/kernels/trsm_kernel.h"

namespace orv::avx {

#include "level3/kernels/gemm_lanes.inc"
#include "level3/kernels/trsm_direct.inc"
#include "level3/kernels/trsm_solve.inc"
#include "level3/kernels/trsm_complex.inc"

using Real = TrsmTiles<Lane<4>, 8, 4, 1, 8, 8, 2, 4>;
using ComplexSolves = ComplexTrsmTiles<Lane<4>, 4, 2, 2, 4, true>;
extern const TrsmKernels kTrsmKernels = {Real::solves(), ComplexSolves::solves(), &Real::direct};

}  // namespace orv::avx
