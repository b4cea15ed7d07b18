// Symmetric and Hermitian rank updates: the avx512 code path's instance of the
// shared kernels.
#include "level1/kernels/avx512/vec.h"
#include "level2/kernels.h"
#include "service/memory.h"

namespace orv::avx512 {

#include "level1/kernels/wide/map.inc"
#include "level2/kernels/syr.inc"

}  // namespace orv::avx512
