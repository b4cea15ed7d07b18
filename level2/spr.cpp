// Symmetric or Hermitian rank-1 update, packed storage.

#include "level2/level2.h"
#include "level2/symmetric_rank1.h"

namespace orv::cnr {

void dspr(const char* uplo, const i64* n, const double* alpha, const double* x, const i64* incx, double* ap)
{
    const bool upper = l2::option(uplo) == 'U';
    l2::symmetric_rank1<false>(upper, *n, *alpha, x, *incx, l2::PackedColumns<double>{ap, *n, upper});
}

void zhpr(const char* uplo, const i64* n, const double* alpha, const dcomplex* x, const i64* incx, dcomplex* ap)
{
    const bool upper = l2::option(uplo) == 'U';
    l2::symmetric_rank1<true>(upper, *n, *alpha, x, *incx, l2::PackedColumns<dcomplex>{ap, *n, upper});
}

}  // namespace orv::cnr
