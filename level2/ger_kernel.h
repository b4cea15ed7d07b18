// Single-thread kernels of the general rank-1 update, one set per build,
// reached through the dger, zgeru and zgerc slots of level2/dispatch.h.
//
// A kernel takes the standard routine's arguments by address (64-bit
// integers), A := alpha*x*y^T + A (y conjugated for zgerc), plus a trailing
// flag that the threaded driver sets to 0 and the kernel ignores. It returns
// at once for m or n below 1 and for alpha = 0 (either sign; a NaN alpha
// goes on). A column whose y(j) compares equal to zero is left untouched,
// whatever x holds; every other column is a(:, j) := (alpha*y(j))*x + a(:, j)
// by the same build's axpy kernel. A column's result therefore depends only
// on the build, m, x, incx, alpha and y(j): never on which other columns
// share the call.
#pragma once

#include "service/types.h"

namespace orv {

template <typename T>
using GerKernel = void (*)(const i64* m, const i64* n, const T* alpha, const T* x, const i64* incx, const T* y,
                           const i64* incy, T* a, const i64* lda, const i64* flag);

}  // namespace orv
