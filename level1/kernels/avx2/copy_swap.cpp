// Copy and swap: the AVX2 code path's instance of the shared kernels.
#include "level1/kernels/avx2/vec.h"

namespace orv::avx2 {

#include "level1/kernels/wide/map.inc"
#include "level1/kernels/wide/copy_swap.inc"

}  // namespace orv::avx2
