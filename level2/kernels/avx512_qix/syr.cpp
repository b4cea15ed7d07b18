// Symmetric and Hermitian rank updates: the avx512_qix code path's instance of the
// shared kernels.
#include "level1/kernels/avx512_qix/vec.h"
#include "level2/kernels.h"
#include "service/memory.h"

namespace orv::avx512_qix {

#include "level1/kernels/wide/map.inc"
#include "level2/kernels/syr.inc"

}  // namespace orv::avx512_qix
