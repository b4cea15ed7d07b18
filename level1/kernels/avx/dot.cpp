// Dot products: the AVX code path's instance of the shared kernels.
#include "level1/kernels/avx/vec.h"

namespace orv::avx {

#include "level1/kernels/wide/reduce.inc"
#include "level1/kernels/wide/dot.inc"

}  // namespace orv::avx
