// Vector traits of the AVX2 code path, in its own namespace.
#pragma once

#include "level1/kernels/simd.h"

namespace orv::avx2 {

#include "level1/kernels/wide/narrow.inc"
#include "level1/kernels/wide/vec256.inc"
#include "level1/kernels/wide/common.inc"

}  // namespace orv::avx2
