// Symmetric or Hermitian matrix-vector product, packed storage.

#include "level2/level2.h"
#include "level2/symmetric_mv.h"

namespace orv::l2 {
namespace {

// Complex matrices are Hermitian.
template <typename T>
void spmv(const char* uplo, const i64* n, const T* alpha, const T* ap, const T* x, const i64* incx, const T* beta,
          T* y, const i64* incy)
{
    const bool upper = option_letter(uplo) == 'U';
    symmetric_mv<is_complex<T>>(upper, *n, *n - 1, *alpha, PackedColumns<const T>{ap, *n, upper}, x, *incx, *beta, y,
                                *incy);
}

}  // namespace
}  // namespace orv::l2

namespace orv::plain {

void sspmv(const char* uplo, const i64* n, const float* alpha, const float* ap, const float* x, const i64* incx,
           const float* beta, float* y, const i64* incy)
{
    l2::spmv(uplo, n, alpha, ap, x, incx, beta, y, incy);
}

void dspmv(const char* uplo, const i64* n, const double* alpha, const double* ap, const double* x, const i64* incx,
           const double* beta, double* y, const i64* incy)
{
    l2::spmv(uplo, n, alpha, ap, x, incx, beta, y, incy);
}

void chpmv(const char* uplo, const i64* n, const fcomplex* alpha, const fcomplex* ap, const fcomplex* x,
           const i64* incx, const fcomplex* beta, fcomplex* y, const i64* incy)
{
    l2::spmv(uplo, n, alpha, ap, x, incx, beta, y, incy);
}

void zhpmv(const char* uplo, const i64* n, const dcomplex* alpha, const dcomplex* ap, const dcomplex* x,
           const i64* incx, const dcomplex* beta, dcomplex* y, const i64* incy)
{
    l2::spmv(uplo, n, alpha, ap, x, incx, beta, y, incy);
}

}  // namespace orv::plain
