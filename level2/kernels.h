// The single-thread matrix-vector kernels of every build, declared in the
// build's namespace (the kernels' contracts: level2/gemv_kernel.h,
// level2/ger_kernel.h, level2/symv_kernel.h, level2/trmv_kernel.h,
// level2/syr_kernel.h).
//
// def is the baseline build; cnr its reproducible twin, whose results depend
// neither on the processor nor on where the arrays lie. cnr has general
// products of its own, and triangular products and solves built over them.
// Everything else it shares with def, whose orders of operations follow the
// shape alone: the rank-1 and rank-2 updates, the symmetric and Hermitian
// products, and the band and packed kernels.
#pragma once

#include "level2/gemv_kernel.h"
#include "level2/ger_kernel.h"
#include "level2/symv_kernel.h"
#include "level2/syr_kernel.h"
#include "level2/trmv_kernel.h"

namespace orv {

namespace def {
#include "level2/kernels/gemv_signatures.inc"
#include "level2/kernels/ger_signatures.inc"
#include "level2/kernels/symv_signatures.inc"
#include "level2/kernels/trmv_signatures.inc"
#include "level2/kernels/band_signatures.inc"
#include "level2/kernels/syr_signatures.inc"
}  // namespace def
namespace cnr {
#include "level2/kernels/gemv_signatures.inc"
#include "level2/kernels/trmv_signatures.inc"
}  // namespace cnr
namespace mc {
#include "level2/kernels/gemv_signatures.inc"
#include "level2/kernels/ger_signatures.inc"
#include "level2/kernels/symv_signatures.inc"
#include "level2/kernels/trmv_signatures.inc"
#include "level2/kernels/band_signatures.inc"
#include "level2/kernels/syr_signatures.inc"
}  // namespace mc
namespace mc3 {
#include "level2/kernels/gemv_signatures.inc"
#include "level2/kernels/ger_signatures.inc"
#include "level2/kernels/symv_signatures.inc"
#include "level2/kernels/trmv_signatures.inc"
#include "level2/kernels/band_signatures.inc"
#include "level2/kernels/syr_signatures.inc"
}  // namespace mc3
namespace avx {
#include "level2/kernels/gemv_signatures.inc"
#include "level2/kernels/ger_signatures.inc"
#include "level2/kernels/symv_signatures.inc"
#include "level2/kernels/trmv_signatures.inc"
#include "level2/kernels/band_signatures.inc"
#include "level2/kernels/syr_signatures.inc"
}  // namespace avx
namespace avx2 {
#include "level2/kernels/gemv_signatures.inc"
#include "level2/kernels/ger_signatures.inc"
#include "level2/kernels/symv_signatures.inc"
#include "level2/kernels/trmv_signatures.inc"
#include "level2/kernels/band_signatures.inc"
#include "level2/kernels/syr_signatures.inc"
}  // namespace avx2
namespace avx512_qix {
#include "level2/kernels/gemv_signatures.inc"
#include "level2/kernels/ger_signatures.inc"
#include "level2/kernels/symv_signatures.inc"
#include "level2/kernels/trmv_signatures.inc"
#include "level2/kernels/band_signatures.inc"
#include "level2/kernels/syr_signatures.inc"
}  // namespace avx512_qix
namespace avx512 {
#include "level2/kernels/gemv_signatures.inc"
#include "level2/kernels/ger_signatures.inc"
#include "level2/kernels/symv_signatures.inc"
#include "level2/kernels/trmv_signatures.inc"
#include "level2/kernels/band_signatures.inc"
#include "level2/kernels/syr_signatures.inc"
}  // namespace avx512

}  // namespace orv
