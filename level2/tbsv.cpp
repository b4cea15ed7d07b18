// Triangular solve, band storage.

#include "level2/level2.h"
#include "level2/triangular_sv.h"

namespace orv::l2 {
namespace {

template <typename T>
void tbsv(const char* uplo, const char* trans, const char* diag, const i64* n, const i64* k, const T* a, const i64* lda,
          T* x, const i64* incx)
{
    const Triangle tri = triangle(uplo, trans, diag);
    triangular_sv(tri, *n, *k, BandColumns<const T>{a, *lda, tri.upper ? *k : 0}, x, *incx);
}

}  // namespace
}  // namespace orv::l2

namespace orv::plain {

void stbsv(const char* uplo, const char* trans, const char* diag, const i64* n, const i64* k, const float* a,
           const i64* lda, float* x, const i64* incx)
{
    l2::tbsv(uplo, trans, diag, n, k, a, lda, x, incx);
}

void dtbsv(const char* uplo, const char* trans, const char* diag, const i64* n, const i64* k, const double* a,
           const i64* lda, double* x, const i64* incx)
{
    l2::tbsv(uplo, trans, diag, n, k, a, lda, x, incx);
}

void ctbsv(const char* uplo, const char* trans, const char* diag, const i64* n, const i64* k, const fcomplex* a,
           const i64* lda, fcomplex* x, const i64* incx)
{
    l2::tbsv(uplo, trans, diag, n, k, a, lda, x, incx);
}

void ztbsv(const char* uplo, const char* trans, const char* diag, const i64* n, const i64* k, const dcomplex* a,
           const i64* lda, dcomplex* x, const i64* incx)
{
    l2::tbsv(uplo, trans, diag, n, k, a, lda, x, incx);
}

}  // namespace orv::plain
