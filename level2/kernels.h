// The single-thread matrix-vector kernels of every build, declared in the
// build's namespace (the kernels' contracts: level2/gemv_kernel.h,
// level2/ger_kernel.h, level2/syr_kernel.h).
//
// def is the baseline build; cnr its reproducible twin, whose results depend
// neither on the processor nor on where the arrays lie. cnr has general
// products of its own; its rank-1 updates are def's, since the baseline axpy
// rounds every element alike wherever the arrays lie, and so are its
// symmetric and Hermitian rank updates.
#pragma once

#include "level2/gemv_kernel.h"
#include "level2/ger_kernel.h"
#include "level2/syr_kernel.h"

namespace orv {

namespace def {
#include "level2/kernels/gemv_signatures.inc"
#include "level2/kernels/ger_signatures.inc"
#include "level2/kernels/syr_signatures.inc"
}  // namespace def
namespace cnr {
#include "level2/kernels/gemv_signatures.inc"
}  // namespace cnr
namespace mc {
#include "level2/kernels/gemv_signatures.inc"
#include "level2/kernels/ger_signatures.inc"
#include "level2/kernels/syr_signatures.inc"
}  // namespace mc
namespace mc3 {
#include "level2/kernels/gemv_signatures.inc"
#include "level2/kernels/ger_signatures.inc"
#include "level2/kernels/syr_signatures.inc"
}  // namespace mc3
namespace avx {
#include "level2/kernels/gemv_signatures.inc"
#include "level2/kernels/ger_signatures.inc"
#include "level2/kernels/syr_signatures.inc"
}  // namespace avx
namespace avx2 {
#include "level2/kernels/gemv_signatures.inc"
#include "level2/kernels/ger_signatures.inc"
#include "level2/kernels/syr_signatures.inc"
}  // namespace avx2
namespace avx512_qix {
#include "level2/kernels/gemv_signatures.inc"
#include "level2/kernels/ger_signatures.inc"
#include "level2/kernels/syr_signatures.inc"
}  // namespace avx512_qix
namespace avx512 {
#include "level2/kernels/gemv_signatures.inc"
#include "level2/kernels/ger_signatures.inc"
#include "level2/kernels/syr_signatures.inc"
}  // namespace avx512

}  // namespace orv
