// Symmetric or Hermitian matrix-vector product, full storage, single
// precision (the double routines have kernels of their own per build).

#include "level2/level2.h"
#include "level2/symmetric_mv.h"

namespace orv::l2 {
namespace {

// Complex matrices are Hermitian.
template <typename T>
void symv(const char* uplo, const i64* n, const T* alpha, const T* a, const i64* lda, const T* x, const i64* incx,
          const T* beta, T* y, const i64* incy)
{
    symmetric_mv<is_complex<T>>(option_letter(uplo) == 'U', *n, *n - 1, *alpha, FullColumns<const T>{a, *lda}, x,
                                *incx, *beta, y, *incy);
}

}  // namespace
}  // namespace orv::l2

namespace orv::plain {

void ssymv(const char* uplo, const i64* n, const float* alpha, const float* a, const i64* lda, const float* x,
           const i64* incx, const float* beta, float* y, const i64* incy)
{
    l2::symv(uplo, n, alpha, a, lda, x, incx, beta, y, incy);
}

void chemv(const char* uplo, const i64* n, const fcomplex* alpha, const fcomplex* a, const i64* lda, const fcomplex* x,
           const i64* incx, const fcomplex* beta, fcomplex* y, const i64* incy)
{
    l2::symv(uplo, n, alpha, a, lda, x, incx, beta, y, incy);
}

}  // namespace orv::plain
