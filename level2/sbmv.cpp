// Symmetric or Hermitian matrix-vector product, band storage.

#include "level2/level2.h"
#include "level2/symmetric_mv.h"

namespace orv::l2 {
namespace {

// Complex matrices are Hermitian.
template <typename T>
void sbmv(const char* uplo, const i64* n, const i64* k, const T* alpha, const T* a, const i64* lda, const T* x,
          const i64* incx, const T* beta, T* y, const i64* incy)
{
    const bool upper = option_letter(uplo) == 'U';
    symmetric_mv<is_complex<T>>(upper, *n, *k, *alpha, BandColumns<const T>{a, *lda, upper ? *k : 0}, x, *incx,
                                *beta, y, *incy);
}

}  // namespace
}  // namespace orv::l2

namespace orv::plain {

void ssbmv(const char* uplo, const i64* n, const i64* k, const float* alpha, const float* a, const i64* lda,
           const float* x, const i64* incx, const float* beta, float* y, const i64* incy)
{
    l2::sbmv(uplo, n, k, alpha, a, lda, x, incx, beta, y, incy);
}

void dsbmv(const char* uplo, const i64* n, const i64* k, const double* alpha, const double* a, const i64* lda,
           const double* x, const i64* incx, const double* beta, double* y, const i64* incy)
{
    l2::sbmv(uplo, n, k, alpha, a, lda, x, incx, beta, y, incy);
}

void chbmv(const char* uplo, const i64* n, const i64* k, const fcomplex* alpha, const fcomplex* a, const i64* lda,
           const fcomplex* x, const i64* incx, const fcomplex* beta, fcomplex* y, const i64* incy)
{
    l2::sbmv(uplo, n, k, alpha, a, lda, x, incx, beta, y, incy);
}

void zhbmv(const char* uplo, const i64* n, const i64* k, const dcomplex* alpha, const dcomplex* a, const i64* lda,
           const dcomplex* x, const i64* incx, const dcomplex* beta, dcomplex* y, const i64* incy)
{
    l2::sbmv(uplo, n, k, alpha, a, lda, x, incx, beta, y, incy);
}

}  // namespace orv::plain
