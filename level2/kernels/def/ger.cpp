// Rank-1 update kernels: the baseline build's instance of the shared
// kernels, which the reproducible build shares.
#include "level1/kernels.h"
#include "level2/kernels.h"
#include "service/memory.h"

namespace orv::def {

#include "level2/kernels/ger.inc"

}  // namespace orv::def
