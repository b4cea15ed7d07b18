// Symmetric or Hermitian rank-2 update, full storage.

#include "level2/level2.h"
#include "level2/symmetric_rank2.h"

namespace orv::cnr {

void dsyr2(const char* uplo, const i64* n, const double* alpha, const double* x, const i64* incx, const double* y,
           const i64* incy, double* a, const i64* lda)
{
    l2::symmetric_rank2<false>(l2::option(uplo) == 'U', *n, *alpha, x, *incx, y, *incy,
                               l2::FullColumns<double>{a, *lda});
}

void zher2(const char* uplo, const i64* n, const dcomplex* alpha, const dcomplex* x, const i64* incx,
           const dcomplex* y, const i64* incy, dcomplex* a, const i64* lda)
{
    l2::symmetric_rank2<true>(l2::option(uplo) == 'U', *n, *alpha, x, *incx, y, *incy,
                              l2::FullColumns<dcomplex>{a, *lda});
}

}  // namespace orv::cnr
