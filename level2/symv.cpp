// Symmetric or Hermitian matrix-vector product, full storage.

#include "level2/level2.h"
#include "level2/symmetric_mv.h"

namespace orv::cnr {

void dsymv(const char* uplo, const i64* n, const double* alpha, const double* a, const i64* lda, const double* x,
           const i64* incx, const double* beta, double* y, const i64* incy)
{
    l2::symmetric_mv<false>(l2::option(uplo) == 'U', *n, *n - 1, *alpha, l2::FullColumns<const double>{a, *lda}, x,
                            *incx, *beta, y, *incy);
}

void zhemv(const char* uplo, const i64* n, const dcomplex* alpha, const dcomplex* a, const i64* lda,
           const dcomplex* x, const i64* incx, const dcomplex* beta, dcomplex* y, const i64* incy)
{
    l2::symmetric_mv<true>(l2::option(uplo) == 'U', *n, *n - 1, *alpha, l2::FullColumns<const dcomplex>{a, *lda}, x,
                           *incx, *beta, y, *incy);
}

}  // namespace orv::cnr
