// The triangular product and solve: the inner layer of dtrmv_, ztrmv_,
// dtrsv_ and ztrsv_. Arguments as the standard routine's, all by address
// with 64-bit integers (see level2/trmv_kernel.h).
//
// The product of a large enough matrix is shared by a team: the threads read
// a copy of x and each writes its own rows of x through the strip kernel, the
// first half of the team taking the first rows in smaller shares when those
// rows hold the longer dot products. Results depend on the team size
// granted, never on thread timing. The solve calls its kernel once; the
// kernel reaches the threaded general product for its long updates.
#pragma once

#include "service/types.h"

void orv_blas_dtrmv(const char* uplo, const char* trans, const char* diag, const orv::i64* n, const double* a,
                    const orv::i64* lda, double* x, const orv::i64* incx);
void orv_blas_ztrmv(const char* uplo, const char* trans, const char* diag, const orv::i64* n,
                    const orv::dcomplex* a, const orv::i64* lda, orv::dcomplex* x, const orv::i64* incx);
void orv_blas_dtrsv(const char* uplo, const char* trans, const char* diag, const orv::i64* n, const double* a,
                    const orv::i64* lda, double* x, const orv::i64* incx);
void orv_blas_ztrsv(const char* uplo, const char* trans, const char* diag, const orv::i64* n,
                    const orv::dcomplex* a, const orv::i64* lda, orv::dcomplex* x, const orv::i64* incx);
