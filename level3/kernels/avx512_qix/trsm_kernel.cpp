// Kernels of the real triangular solve for the many-core AVX-512 processors: the
// 8 x 28 tile on side R, 28 x 8 on side L (three vectors and a half).
// The complex solve: the complex 4 x 14 tile: 14 unknowns a chunk on side R, 4 on side L.
#include <immintrin.h>

#include "level3/kernels/trsm_kernel.h"

namespace orv::avx512_qix {

#include "level3/kernels/gemm_lanes.inc"
#include "level3/kernels/trsm_direct.inc"
#include "level3/kernels/trsm_solve.inc"
#include "level3/kernels/trsm_complex.inc"

using Real = TrsmTiles<Lane<8>, 8, 28, 3>;
extern const TrsmKernels kTrsmKernels = {Real::solves(), ComplexTrsmTiles<Lane<8>, 4, 14, 3, 4, false>::solves(), &Real::direct};

}  // namespace orv::avx512_qix
