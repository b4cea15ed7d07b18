// Symmetric or Hermitian rank-1 update, full storage.

#include "level2/level2.h"
#include "level2/symmetric_rank1.h"

namespace orv::cnr {

void dsyr(const char* uplo, const i64* n, const double* alpha, const double* x, const i64* incx, double* a,
          const i64* lda)
{
    l2::symmetric_rank1<false>(l2::option(uplo) == 'U', *n, *alpha, x, *incx, l2::FullColumns<double>{a, *lda});
}

void zher(const char* uplo, const i64* n, const double* alpha, const dcomplex* x, const i64* incx, dcomplex* a,
          const i64* lda)
{
    l2::symmetric_rank1<true>(l2::option(uplo) == 'U', *n, *alpha, x, *incx, l2::FullColumns<dcomplex>{a, *lda});
}

}  // namespace orv::cnr
