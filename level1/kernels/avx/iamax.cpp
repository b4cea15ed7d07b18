// Index of the largest magnitude: the AVX code path's instance of the shared kernels.
#include "level1/kernels/avx/vec.h"

namespace orv::avx {

#include "level1/kernels/wide/iamax.inc"

}  // namespace orv::avx
