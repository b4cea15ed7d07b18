// Single-thread kernels of the general matrix-vector product, one pair per
// build, reached through the dgemv and zgemv slots of level2/dispatch.h.
//
// A kernel takes the standard routine's arguments by address (64-bit
// integers; trans 'N' or 'n' for y := alpha*A*x + beta*y, any other letter a
// transposed form, 'C' or 'c' conjugating complex A), plus a trailing flag
// that every caller sets to 1. A kernel returns at once for m or n below 1
// and for alpha = 0 with beta = 1; beta = 0 stores exact zeros into y
// without reading it; alpha = 0 never reads A or x. An increment of y of 0
// (only from the library's own drivers) names one element that collects the
// whole product, beta applied once per logical element.
#pragma once

#include "service/types.h"

namespace orv {

template <typename T>
using GemvKernel = void (*)(const char* trans, const i64* m, const i64* n, const T* alpha, const T* a,
                            const i64* lda, const T* x, const i64* incx, const T* beta, T* y, const i64* incy,
                            const i64* flag);

// Transposed products with a strided x copy x into a scratch buffer of this
// many elements, one block of rows at a time.
inline constexpr i64 kGemvPackedX = 512;

}  // namespace orv
