// Triangular matrix-vector product, band storage.

#include "level2/level2.h"
#include "level2/triangular_mv.h"

namespace orv::cnr {

void dtbmv(const char* uplo, const char* trans, const char* diag, const i64* n, const i64* k, const double* a,
           const i64* lda, double* x, const i64* incx)
{
    const l2::Triangle tri = l2::triangle(uplo, trans, diag);
    l2::triangular_mv(tri, *n, *k, l2::BandColumns<const double>{a, *lda, tri.upper ? *k : 0}, x, *incx);
}

void ztbmv(const char* uplo, const char* trans, const char* diag, const i64* n, const i64* k, const dcomplex* a,
           const i64* lda, dcomplex* x, const i64* incx)
{
    const l2::Triangle tri = l2::triangle(uplo, trans, diag);
    l2::triangular_mv(tri, *n, *k, l2::BandColumns<const dcomplex>{a, *lda, tri.upper ? *k : 0}, x, *incx);
}

}  // namespace orv::cnr
