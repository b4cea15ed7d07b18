// Symmetric and Hermitian rank updates: the mc3 code path's instance of the
// shared kernels.
#include "level1/kernels/mc3/vec.h"
#include "level2/kernels.h"
#include "service/memory.h"

namespace orv::mc3 {

#include "level1/kernels/wide/map.inc"
#include "level2/kernels/syr.inc"

}  // namespace orv::mc3
