// The threaded general rank-1 update: the inner layer of dger_, zgeru_ and
// zgerc_. Arguments as the standard routine's, all by address with 64-bit
// integers. Wide matrices are cut into contiguous blocks of columns, one
// kernel call each (see level2/ger_kernel.h); since a column's result does not
// depend on its block, the bits are those of one kernel call whatever the
// team.
#pragma once

#include "service/types.h"

void orv_blas_dger(const orv::i64* m, const orv::i64* n, const double* alpha, const double* x, const orv::i64* incx,
                   const double* y, const orv::i64* incy, double* a, const orv::i64* lda);
void orv_blas_zgeru(const orv::i64* m, const orv::i64* n, const orv::dcomplex* alpha, const orv::dcomplex* x,
                    const orv::i64* incx, const orv::dcomplex* y, const orv::i64* incy, orv::dcomplex* a,
                    const orv::i64* lda);
void orv_blas_zgerc(const orv::i64* m, const orv::i64* n, const orv::dcomplex* alpha, const orv::dcomplex* x,
                    const orv::i64* incx, const orv::dcomplex* y, const orv::i64* incy, orv::dcomplex* a,
                    const orv::i64* lda);
