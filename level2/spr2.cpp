// Symmetric or Hermitian rank-2 update, packed storage.

#include "level2/level2.h"
#include "level2/symmetric_rank2.h"

namespace orv::cnr {

void dspr2(const char* uplo, const i64* n, const double* alpha, const double* x, const i64* incx, const double* y,
           const i64* incy, double* ap)
{
    const bool upper = l2::option(uplo) == 'U';
    l2::symmetric_rank2<false>(upper, *n, *alpha, x, *incx, y, *incy, l2::PackedColumns<double>{ap, *n, upper});
}

void zhpr2(const char* uplo, const i64* n, const dcomplex* alpha, const dcomplex* x, const i64* incx,
           const dcomplex* y, const i64* incy, dcomplex* ap)
{
    const bool upper = l2::option(uplo) == 'U';
    l2::symmetric_rank2<true>(upper, *n, *alpha, x, *incx, y, *incy, l2::PackedColumns<dcomplex>{ap, *n, upper});
}

}  // namespace orv::cnr
