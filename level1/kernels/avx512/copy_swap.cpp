// Copy and swap: the server AVX-512 code path's instance of the shared kernels.
#include "level1/kernels/avx512/vec.h"

namespace orv::avx512 {

#include "level1/kernels/wide/map.inc"
#include "level1/kernels/wide/copy_swap.inc"

}  // namespace orv::avx512
