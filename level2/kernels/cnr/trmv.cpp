// Triangular product and solve kernels of the reproducible build: the shared
// kernels over its own general products, whose results depend neither on the
// processor nor on where the arrays lie.
#include "level2/gemv_driver.h"
#include "level2/kernels.h"

namespace orv::cnr {

#include "level2/kernels/trmv.inc"

}  // namespace orv::cnr
