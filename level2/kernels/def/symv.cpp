// Symmetric and Hermitian product kernels: the baseline build's instance of
// the shared kernels, on the two-lane traits of the wider paths (whose
// members that need more than the baseline it never calls), without fused
// multiply-add. Their orders do not depend on where the arrays lie, so the
// reproducible build shares them.
#include "level1/kernels/simd.h"
#include "level2/kernels.h"
#include "service/memory.h"

namespace orv::def {

#include "level1/kernels/wide/narrow.inc"
#include "level1/kernels/wide/vec128.inc"
#include "level1/kernels/wide/common.inc"
#include "level2/kernels/symv.inc"

}  // namespace orv::def
