// Single-thread kernels of the triangular product x := op(A)*x and solve
// op(A)*x = b, A n x n in full storage, one set per build, reached through
// the dtrmv, ztrmv, dtrsv and ztrsv slots of level2/dispatch.h.
//
// A kernel takes the standard routine's arguments by address (64-bit
// integers; uplo 'U' or 'L', trans 'N', 'T' or 'C', diag 'U' or 'N', either
// case) plus three trailing flags that every caller sets to 1. A unit
// diagonal is never read; a zero diagonal in a solve gives infinities or NaN
// by plain division.
//
// The strip kernel (slots dtrmv_strip, ztrmv_strip) serves the threaded
// product: it computes rows first .. first + rows - 1 of op(A) times `copy`,
// a contiguous copy of x in logical order, and writes them to those logical
// elements of x (increment incx). Strips of disjoint rows may run at once.
#pragma once

#include "service/types.h"

namespace orv {

template <typename T>
using TriangularKernel = void (*)(const char* uplo, const char* trans, const char* diag, const i64* n, const T* a,
                                  const i64* lda, T* x, const i64* incx, const i64* flag1, const i64* flag2,
                                  const i64* flag3);

template <typename T>
using TrmvStripKernel = void (*)(const char* uplo, const char* trans, const char* diag, const i64* n, const T* a,
                                 const i64* lda, const T* copy, const i64* first, const i64* rows, T* x,
                                 const i64* incx);

}  // namespace orv
