// Dot products: the AVX2 code path's instance of the shared kernels.
#include "level1/kernels/avx2/vec.h"

namespace orv::avx2 {

#include "level1/kernels/wide/reduce.inc"
#include "level1/kernels/wide/dot.inc"

}  // namespace orv::avx2
