// Triangular product and solve kernels: the avx2 code path's instance of the shared kernels.
#include "level2/gemv_driver.h"
#include "level2/kernels.h"

namespace orv::avx2 {

#include "level2/kernels/trmv.inc"

}  // namespace orv::avx2
