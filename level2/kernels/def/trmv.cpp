// Triangular product and solve kernels: the baseline build's instance of the shared kernels.
#include "level2/gemv_driver.h"
#include "level2/kernels.h"

namespace orv::def {

#include "level2/kernels/trmv.inc"

}  // namespace orv::def
