// Scaling: the AVX code path's instance of the shared kernels.
#include "level1/kernels/avx/vec.h"

namespace orv::avx {

#include "level1/kernels/wide/map.inc"
#include "level1/kernels/wide/scal.inc"

}  // namespace orv::avx
