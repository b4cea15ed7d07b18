// Triangular solve, packed storage.

#include "level2/level2.h"
#include "level2/triangular_sv.h"

namespace orv::cnr {

void dtpsv(const char* uplo, const char* trans, const char* diag, const i64* n, const double* ap, double* x,
           const i64* incx)
{
    const l2::Triangle tri = l2::triangle(uplo, trans, diag);
    l2::triangular_sv(tri, *n, *n - 1, l2::PackedColumns<const double>{ap, *n, tri.upper}, x, *incx);
}

void ztpsv(const char* uplo, const char* trans, const char* diag, const i64* n, const dcomplex* ap, dcomplex* x,
           const i64* incx)
{
    const l2::Triangle tri = l2::triangle(uplo, trans, diag);
    l2::triangular_sv(tri, *n, *n - 1, l2::PackedColumns<const dcomplex>{ap, *n, tri.upper}, x, *incx);
}

}  // namespace orv::cnr
