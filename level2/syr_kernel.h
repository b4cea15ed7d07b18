// Single-thread kernels of the symmetric and Hermitian rank-1 and rank-2
// updates, one set per build, reached through the slots of
// level2/dispatch.h.
//
// The whole-matrix kernels (dsyr, dsyr2) take the standard routine's
// arguments by address (64-bit integers) plus a trailing flag that callers
// set to 1 and the kernel ignores. The strip kernels update columns
// first .. first + count - 1 of the uplo triangle of an n x n matrix whose
// vectors hold its n elements: the threaded driver hands each thread the
// triangle its columns lie in (for a lower triangle, the trailing one from
// the strip's first column). The packed and Hermitian kernels take the
// standard routine's arguments only.
//
// Every kernel returns at once for n below 1 and for alpha = 0. A column is
// a(:, j) := a(:, j) + x * t1 (+ y * t2) over its stored rows, t1 =
// alpha * y(j) and t2 = alpha * x(j) for rank 2 (conjugated as the Hermitian
// forms have it; t1 = alpha * x(j) for rank 1), each element through the
// same operations wherever it lies: its result depends only on the build,
// the values and the column, never on which other columns share the call or
// on the placement of the arrays. Strided vectors are read from a
// contiguous copy in scratch memory, or in place where none can be had. A
// column whose x(j) (and y(j)) compare equal to zero is skipped, whatever
// the vectors hold elsewhere; a Hermitian diagonal is stored real, skipped
// columns included.
#pragma once

#include "service/types.h"

namespace orv {

template <typename T>
using SyrKernel = void (*)(const char* uplo, const i64* n, const T* alpha, const T* x, const i64* incx, T* a,
                           const i64* lda, const i64* flag);
template <typename T>
using Syr2Kernel = void (*)(const char* uplo, const i64* n, const T* alpha, const T* x, const i64* incx, const T* y,
                            const i64* incy, T* a, const i64* lda, const i64* flag);
template <typename T>
using SyrStripKernel = void (*)(const char* uplo, const i64* n, const i64* first, const i64* count, const T* alpha,
                                const T* x, const i64* incx, T* a, const i64* lda);
template <typename T>
using Syr2StripKernel = void (*)(const char* uplo, const i64* n, const i64* first, const i64* count, const T* alpha,
                                 const T* x, const i64* incx, const T* y, const i64* incy, T* a, const i64* lda);

}  // namespace orv
