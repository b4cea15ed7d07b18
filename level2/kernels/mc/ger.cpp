// Rank-1 update kernels: the mc code path's instance of the shared kernels.
#include "level1/kernels.h"
#include "level2/kernels.h"
#include "service/memory.h"

namespace orv::mc {

#include "level2/kernels/ger.inc"

}  // namespace orv::mc
