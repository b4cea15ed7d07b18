// Scaling: the many-core AVX-512 (F and CD) code path's instance of the shared kernels.
#include "level1/kernels/avx512_qix/vec.h"

namespace orv::avx512_qix {

#include "level1/kernels/wide/map.inc"
#include "level1/kernels/wide/scal.inc"

}  // namespace orv::avx512_qix
