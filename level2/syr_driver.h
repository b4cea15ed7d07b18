// The threaded symmetric rank-1 and rank-2 updates: the inner layer of dsyr_
// and dsyr2_. Arguments as the standard routines', all by address with
// 64-bit integers. Large matrices have their columns shared between two
// groups of threads, one strip kernel call each (see level2/syr_kernel.h);
// the columns are disjoint and a column's result does not depend on its
// strip, so the bits are those of one kernel call whatever the team.
#pragma once

#include "service/types.h"

void orv_blas_dsyr(const char* uplo, const orv::i64* n, const double* alpha, const double* x, const orv::i64* incx,
                   double* a, const orv::i64* lda);
void orv_blas_dsyr2(const char* uplo, const orv::i64* n, const double* alpha, const double* x, const orv::i64* incx,
                    const double* y, const orv::i64* incy, double* a, const orv::i64* lda);
