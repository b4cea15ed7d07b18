// Single-thread kernels of the symmetric and Hermitian matrix-vector
// products, one set per build, reached through the dsymv, dsymv_strip and
// zhemv slots of level2/dispatch.h.
//
// Only the uplo triangle ('U' or 'L', either case) of A is read; a Hermitian
// diagonal's imaginary part never is.
//
// The whole-matrix kernels take the standard routine's arguments by address
// (64-bit integers); dsymv has a trailing flag that every caller sets to 1.
// They return at once for n below 1 and for alpha = 0 with beta = 1; beta = 0
// stores exact zeros into y without reading it; alpha = 0 never reads A or x.
// Scaling y by beta and then adding alpha*A*x gives the same bits as one
// call with both, so a caller may scale first and add with beta = 1.
//
// The strip kernel adds alpha times the contribution of the stored columns
// lo..hi-1 (with their mirrored rows) to a contiguous target of n elements:
// for 'U' rows 0..hi-1 of the target change, for 'L' rows lo..n-1. x is
// contiguous too. The whole-matrix kernel is beta, then the strip 0..n.
#pragma once

#include "service/types.h"

namespace orv {

template <typename T>
using SymvKernel = void (*)(const char* uplo, const i64* n, const T* alpha, const T* a, const i64* lda, const T* x,
                            const i64* incx, const T* beta, T* y, const i64* incy, const i64* flag);

using SymvStripKernel = void (*)(const char* uplo, const i64* n, const i64* lo, const i64* hi, const double* alpha,
                                 const double* a, const i64* lda, const double* x, double* target);

using HemvKernel = void (*)(const char* uplo, const i64* n, const dcomplex* alpha, const dcomplex* a, const i64* lda,
                            const dcomplex* x, const i64* incx, const dcomplex* beta, dcomplex* y, const i64* incy);

}  // namespace orv
