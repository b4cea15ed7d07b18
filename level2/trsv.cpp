// Triangular solve, full storage.

#include "level2/level2.h"
#include "level2/triangular_sv.h"

namespace orv::cnr {

void dtrsv(const char* uplo, const char* trans, const char* diag, const i64* n, const double* a, const i64* lda,
           double* x, const i64* incx)
{
    l2::triangular_sv(l2::triangle(uplo, trans, diag), *n, *n - 1, l2::FullColumns<const double>{a, *lda}, x, *incx);
}

void ztrsv(const char* uplo, const char* trans, const char* diag, const i64* n, const dcomplex* a, const i64* lda,
           dcomplex* x, const i64* incx)
{
    l2::triangular_sv(l2::triangle(uplo, trans, diag), *n, *n - 1, l2::FullColumns<const dcomplex>{a, *lda}, x, *incx);
}

}  // namespace orv::cnr
