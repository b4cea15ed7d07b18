// Triangular matrix-vector product, packed storage.

#include "level2/level2.h"
#include "level2/triangular_mv.h"

namespace orv::l2 {
namespace {

template <typename T>
void tpmv(const char* uplo, const char* trans, const char* diag, const i64* n, const T* ap, T* x, const i64* incx)
{
    const Triangle tri = triangle(uplo, trans, diag);
    triangular_mv(tri, *n, *n - 1, PackedColumns<const T>{ap, *n, tri.upper}, x, *incx);
}

}  // namespace
}  // namespace orv::l2

namespace orv::plain {

void stpmv(const char* uplo, const char* trans, const char* diag, const i64* n, const float* ap, float* x,
           const i64* incx)
{
    l2::tpmv(uplo, trans, diag, n, ap, x, incx);
}

void dtpmv(const char* uplo, const char* trans, const char* diag, const i64* n, const double* ap, double* x,
           const i64* incx)
{
    l2::tpmv(uplo, trans, diag, n, ap, x, incx);
}

void ctpmv(const char* uplo, const char* trans, const char* diag, const i64* n, const fcomplex* ap, fcomplex* x,
           const i64* incx)
{
    l2::tpmv(uplo, trans, diag, n, ap, x, incx);
}

void ztpmv(const char* uplo, const char* trans, const char* diag, const i64* n, const dcomplex* ap, dcomplex* x,
           const i64* incx)
{
    l2::tpmv(uplo, trans, diag, n, ap, x, incx);
}

}  // namespace orv::plain
