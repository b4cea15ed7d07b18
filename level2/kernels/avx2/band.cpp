// Band and packed matrix-vector kernels: the avx2 code path's instance of the shared kernels.
#include "level1/kernels/avx2/vec.h"
#include "level2/kernels.h"
#include "service/memory.h"

namespace orv::avx2 {

#include "level2/kernels/band.inc"

}  // namespace orv::avx2
