// Vector traits of the server AVX-512 code path, in its own namespace.
#pragma once

// GCC 12 reports the deliberately undefined pass-through operand inside its
// own 512-bit intrinsics as "maybe uninitialized"; the report is spurious.
#if defined(__GNUC__) && !defined(__clang__) && __GNUC__ < 13
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#endif

#include "level1/kernels/simd.h"

namespace orv::avx512 {

#include "level1/kernels/wide/narrow.inc"
#include "level1/kernels/wide/vec512.inc"
#include "level1/kernels/wide/common.inc"

}  // namespace orv::avx512
