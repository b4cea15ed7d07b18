// Triangular matrix-vector product, full storage.

#include "level2/level2.h"
#include "level2/triangular_mv.h"

namespace orv::cnr {

void dtrmv(const char* uplo, const char* trans, const char* diag, const i64* n, const double* a, const i64* lda,
           double* x, const i64* incx)
{
    l2::triangular_mv(l2::triangle(uplo, trans, diag), *n, *n - 1, l2::FullColumns<const double>{a, *lda}, x, *incx);
}

void ztrmv(const char* uplo, const char* trans, const char* diag, const i64* n, const dcomplex* a, const i64* lda,
           dcomplex* x, const i64* incx)
{
    l2::triangular_mv(l2::triangle(uplo, trans, diag), *n, *n - 1, l2::FullColumns<const dcomplex>{a, *lda}, x, *incx);
}

}  // namespace orv::cnr
