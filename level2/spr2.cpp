// Symmetric or Hermitian rank-2 update, packed storage.

#include "level2/level2.h"
#include "level2/symmetric_rank2.h"

namespace orv::l2 {
namespace {

// Complex matrices are Hermitian.
template <typename T>
void spr2(const char* uplo, const i64* n, const T* alpha, const T* x, const i64* incx, const T* y, const i64* incy,
          T* ap)
{
    const bool upper = option_letter(uplo) == 'U';
    symmetric_rank2<is_complex<T>>(upper, *n, *alpha, x, *incx, y, *incy, PackedColumns<T>{ap, *n, upper});
}

}  // namespace
}  // namespace orv::l2

namespace orv::plain {

void sspr2(const char* uplo, const i64* n, const float* alpha, const float* x, const i64* incx, const float* y,
           const i64* incy, float* ap)
{
    l2::spr2(uplo, n, alpha, x, incx, y, incy, ap);
}

void chpr2(const char* uplo, const i64* n, const fcomplex* alpha, const fcomplex* x, const i64* incx,
           const fcomplex* y, const i64* incy, fcomplex* ap)
{
    l2::spr2(uplo, n, alpha, x, incx, y, incy, ap);
}

}  // namespace orv::plain
