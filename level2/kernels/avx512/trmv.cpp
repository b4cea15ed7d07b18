// Triangular product and solve kernels: the avx512 code path's instance of the shared kernels.
#include "level2/gemv_driver.h"
#include "level2/kernels.h"

namespace orv::avx512 {

#include "level2/kernels/trmv.inc"

}  // namespace orv::avx512
