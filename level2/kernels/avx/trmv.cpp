// Triangular product and solve kernels: the avx code path's instance of the shared kernels.
#include "level2/gemv_driver.h"
#include "level2/kernels.h"

namespace orv::avx {

#include "level2/kernels/trmv.inc"

}  // namespace orv::avx
