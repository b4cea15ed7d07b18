// y := alpha*x + y: the AVX2 code path's instance of the shared kernels.
#include "level1/kernels/avx2/vec.h"

namespace orv::avx2 {

#include "level1/kernels/wide/map.inc"
#include "level1/kernels/wide/axpy.inc"

}  // namespace orv::avx2
