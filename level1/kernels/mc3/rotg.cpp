// Construction of plane rotations: the SSE4.2 code path's instance of the shared kernels.
#include "level1/kernels/mc3/vec.h"

namespace orv::mc3 {

#include "level1/kernels/wide/rotg.inc"

}  // namespace orv::mc3
