// Kernels of the real triangular solve for the many-core AVX-512 processors: the
// 8 x 28 tile on side R, 28 x 8 on side L (three vectors and a half).
// The complex solve: on side R the complex 4 x 14 tile, 14 unknowns a chunk;
// on side L up to three vectors of a panel's columns against 4 unknowns.
#include <immintrin.h>

#include "level3/kernels/trsm_kernel.h"

namespace orv::avx512_qix {

#include "level3/kernels/gemm_lanes.inc"
#include "level3/kernels/trsm_direct.inc"
#include "level3/kernels/trsm_solve.inc"
#include "level3/kernels/trsm_complex.inc"

using Real = TrsmTiles<Lane<8>, 8, 28, 3>;
using ComplexSolves = ComplexTrsmTiles<Lane<8>, 4, 14, 3, 4, false>;
extern const TrsmKernels kTrsmKernels = {Real::solves(), ComplexSolves::solves(), &Real::direct};

}  // namespace orv::avx512_qix
