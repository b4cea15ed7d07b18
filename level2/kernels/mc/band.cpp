// Band and packed matrix-vector kernels: the mc code path's instance of the shared kernels.
#include "level1/kernels/mc/vec.h"
#include "level2/kernels.h"
#include "service/memory.h"

namespace orv::mc {

#include "level2/kernels/band.inc"

}  // namespace orv::mc
