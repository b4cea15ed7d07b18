// Triangular solve, packed storage.

#include "level2/level2.h"
#include "level2/triangular_sv.h"

namespace orv::l2 {
namespace {

template <typename T>
void tpsv(const char* uplo, const char* trans, const char* diag, const i64* n, const T* ap, T* x, const i64* incx)
{
    const Triangle tri = triangle(uplo, trans, diag);
    triangular_sv(tri, *n, *n - 1, PackedColumns<const T>{ap, *n, tri.upper}, x, *incx);
}

}  // namespace
}  // namespace orv::l2

namespace orv::plain {

void stpsv(const char* uplo, const char* trans, const char* diag, const i64* n, const float* ap, float* x,
           const i64* incx)
{
    l2::tpsv(uplo, trans, diag, n, ap, x, incx);
}

void dtpsv(const char* uplo, const char* trans, const char* diag, const i64* n, const double* ap, double* x,
           const i64* incx)
{
    l2::tpsv(uplo, trans, diag, n, ap, x, incx);
}

void ctpsv(const char* uplo, const char* trans, const char* diag, const i64* n, const fcomplex* ap, fcomplex* x,
           const i64* incx)
{
    l2::tpsv(uplo, trans, diag, n, ap, x, incx);
}

void ztpsv(const char* uplo, const char* trans, const char* diag, const i64* n, const dcomplex* ap, dcomplex* x,
           const i64* incx)
{
    l2::tpsv(uplo, trans, diag, n, ap, x, incx);
}

}  // namespace orv::plain
