// The baseline build of the general matrix-vector kernels.
#include "level2/kernels.h"
#include "level2/kernels/gemv_baseline.h"

namespace orv::def {

void dgemv(const char* trans, const i64* m, const i64* n, const double* alpha, const double* a, const i64* lda,
           const double* x, const i64* incx, const double* beta, double* y, const i64* incy, const i64*)
{
    l2::gemv_baseline<true>(trans, *m, *n, *alpha, a, *lda, x, *incx, *beta, y, *incy);
}

void zgemv(const char* trans, const i64* m, const i64* n, const dcomplex* alpha, const dcomplex* a, const i64* lda,
           const dcomplex* x, const i64* incx, const dcomplex* beta, dcomplex* y, const i64* incy, const i64*)
{
    l2::gemv_baseline<true>(trans, *m, *n, *alpha, a, *lda, x, *incx, *beta, y, *incy);
}

}  // namespace orv::def
