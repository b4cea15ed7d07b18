// Symmetric and Hermitian rank updates: the baseline build's instance of the
// shared kernels, which the reproducible build shares. The baseline has no
// vector traits of its own; the two-lane ones ask for nothing past SSE2.
#include "level1/kernels/simd.h"
#include "level2/kernels.h"
#include "service/memory.h"

namespace orv::def {

#include "level1/kernels/wide/narrow.inc"
#include "level1/kernels/wide/vec128.inc"
#include "level1/kernels/wide/common.inc"
#include "level1/kernels/wide/map.inc"
#include "level2/kernels/syr.inc"

}  // namespace orv::def
