// Band and packed matrix-vector kernels: the avx code path's instance of the shared kernels.
#include "level1/kernels/avx/vec.h"
#include "level2/kernels.h"
#include "service/memory.h"

namespace orv::avx {

#include "level2/kernels/band.inc"

}  // namespace orv::avx
