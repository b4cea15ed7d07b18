// The threaded general matrix-vector product: the inner layer of dgemv_ and
// zgemv_, and the road by which the library's own drivers (the level-3
// products of one row or one column) reach the product on several threads.
//
// Arguments as the standard routine's, all by address with 64-bit integers
// (see level2/gemv_kernel.h for trans and the kernels' contract). The call
// decides from the shape, the thread policy and the processor whether to run
// the kernel once on this thread or to open one team, and how to cut the
// work: by rows of y, by columns of A, or into partial products over the
// long side of a wide or tall matrix, summed in thread order. Results depend
// on the team size granted, never on thread timing.
#pragma once

#include "service/types.h"

void orv_blas_dgemv(const char* trans, const orv::i64* m, const orv::i64* n, const double* alpha, const double* a,
                    const orv::i64* lda, const double* x, const orv::i64* incx, const double* beta, double* y,
                    const orv::i64* incy);
void orv_blas_zgemv(const char* trans, const orv::i64* m, const orv::i64* n, const orv::dcomplex* alpha,
                    const orv::dcomplex* a, const orv::i64* lda, const orv::dcomplex* x, const orv::i64* incx,
                    const orv::dcomplex* beta, orv::dcomplex* y, const orv::i64* incy);
