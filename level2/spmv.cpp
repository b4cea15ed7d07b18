// Symmetric or Hermitian matrix-vector product, packed storage.

#include "level2/level2.h"
#include "level2/symmetric_mv.h"

namespace orv::cnr {

void dspmv(const char* uplo, const i64* n, const double* alpha, const double* ap, const double* x, const i64* incx,
           const double* beta, double* y, const i64* incy)
{
    const bool upper = l2::option(uplo) == 'U';
    l2::symmetric_mv<false>(upper, *n, *n - 1, *alpha, l2::PackedColumns<const double>{ap, *n, upper}, x, *incx,
                            *beta, y, *incy);
}

void zhpmv(const char* uplo, const i64* n, const dcomplex* alpha, const dcomplex* ap, const dcomplex* x,
           const i64* incx, const dcomplex* beta, dcomplex* y, const i64* incy)
{
    const bool upper = l2::option(uplo) == 'U';
    l2::symmetric_mv<true>(upper, *n, *n - 1, *alpha, l2::PackedColumns<const dcomplex>{ap, *n, upper}, x, *incx,
                           *beta, y, *incy);
}

}  // namespace orv::cnr
