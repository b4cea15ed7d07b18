// Euclidean norms: the SSSE3 code path's instance of the shared kernels.
#include "level1/kernels/mc/vec.h"

namespace orv::mc {

#include "level1/kernels/wide/nrm2.inc"

}  // namespace orv::mc
