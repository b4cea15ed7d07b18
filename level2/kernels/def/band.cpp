// Band and packed matrix-vector kernels: the baseline build's instance of the
// shared kernels, on the two-lane registers every x86-64 processor has.
#include "level1/kernels/simd.h"
#include "level2/kernels.h"
#include "service/memory.h"

namespace orv::def {

#include "level1/kernels/wide/narrow.inc"
#include "level1/kernels/wide/vec128.inc"
#include "level1/kernels/wide/common.inc"
#include "level2/kernels/band.inc"

}  // namespace orv::def
