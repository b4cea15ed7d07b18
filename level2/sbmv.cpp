// Symmetric or Hermitian matrix-vector product, band storage.

#include "level2/level2.h"
#include "level2/symmetric_mv.h"

namespace orv::cnr {

void dsbmv(const char* uplo, const i64* n, const i64* k, const double* alpha, const double* a, const i64* lda,
           const double* x, const i64* incx, const double* beta, double* y, const i64* incy)
{
    const bool upper = l2::option(uplo) == 'U';
    l2::symmetric_mv<false>(upper, *n, *k, *alpha, l2::BandColumns<const double>{a, *lda, upper ? *k : 0}, x, *incx,
                            *beta, y, *incy);
}

void zhbmv(const char* uplo, const i64* n, const i64* k, const dcomplex* alpha, const dcomplex* a, const i64* lda,
           const dcomplex* x, const i64* incx, const dcomplex* beta, dcomplex* y, const i64* incy)
{
    const bool upper = l2::option(uplo) == 'U';
    l2::symmetric_mv<true>(upper, *n, *k, *alpha, l2::BandColumns<const dcomplex>{a, *lda, upper ? *k : 0}, x, *incx,
                           *beta, y, *incy);
}

}  // namespace orv::cnr
