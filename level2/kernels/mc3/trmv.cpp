// Triangular product and solve kernels: the mc3 code path's instance of the shared kernels.
#include "level2/gemv_driver.h"
#include "level2/kernels.h"

namespace orv::mc3 {

#include "level2/kernels/trmv.inc"

}  // namespace orv::mc3
