// Scaling: the SSE4.2 code path's instance of the shared kernels.
#include "level1/kernels/mc3/vec.h"

namespace orv::mc3 {

#include "level1/kernels/wide/map.inc"
#include "level1/kernels/wide/scal.inc"

}  // namespace orv::mc3
