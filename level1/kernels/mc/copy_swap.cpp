// Copy and swap: the SSSE3 code path's instance of the shared kernels.
#include "level1/kernels/mc/vec.h"

namespace orv::mc {

#include "level1/kernels/wide/map.inc"
#include "level1/kernels/wide/copy_swap.inc"

}  // namespace orv::mc
