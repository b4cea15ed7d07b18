// Vector traits of the SSSE3 code path, in its own namespace.
#pragma once

#include "level1/kernels/simd.h"

namespace orv::mc {

#include "level1/kernels/wide/narrow.inc"
#include "level1/kernels/wide/vec128.inc"
#include "level1/kernels/wide/common.inc"

}  // namespace orv::mc
