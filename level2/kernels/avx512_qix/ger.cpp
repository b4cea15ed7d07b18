// Rank-1 update kernels: the avx512_qix code path's instance of the shared kernels.
#include "level1/kernels.h"
#include "level2/kernels.h"
#include "service/memory.h"

namespace orv::avx512_qix {

#include "level2/kernels/ger.inc"

}  // namespace orv::avx512_qix
