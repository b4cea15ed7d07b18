// Symmetric or Hermitian rank-2 update, full storage.

#include "level2/level2.h"
#include "level2/symmetric_rank2.h"

namespace orv::l2 {
namespace {

// Complex matrices are Hermitian.
template <typename T>
void syr2(const char* uplo, const i64* n, const T* alpha, const T* x, const i64* incx, const T* y, const i64* incy,
          T* a, const i64* lda)
{
    symmetric_rank2<is_complex<T>>(option_letter(uplo) == 'U', *n, *alpha, x, *incx, y, *incy,
                                   FullColumns<T>{a, *lda});
}

}  // namespace
}  // namespace orv::l2

namespace orv::plain {

void ssyr2(const char* uplo, const i64* n, const float* alpha, const float* x, const i64* incx, const float* y,
           const i64* incy, float* a, const i64* lda)
{
    l2::syr2(uplo, n, alpha, x, incx, y, incy, a, lda);
}

void cher2(const char* uplo, const i64* n, const fcomplex* alpha, const fcomplex* x, const i64* incx,
           const fcomplex* y, const i64* incy, fcomplex* a, const i64* lda)
{
    l2::syr2(uplo, n, alpha, x, incx, y, incy, a, lda);
}

}  // namespace orv::plain
