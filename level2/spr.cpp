// Symmetric or Hermitian rank-1 update, packed storage.

#include "level2/level2.h"
#include "level2/symmetric_rank1.h"

namespace orv::l2 {
namespace {

// Complex matrices are Hermitian.
template <typename T>
void spr(const char* uplo, const i64* n, const real_of<T>* alpha, const T* x, const i64* incx, T* ap)
{
    const bool upper = option_letter(uplo) == 'U';
    symmetric_rank1<is_complex<T>>(upper, *n, *alpha, x, *incx, PackedColumns<T>{ap, *n, upper});
}

}  // namespace
}  // namespace orv::l2

namespace orv::plain {

void sspr(const char* uplo, const i64* n, const float* alpha, const float* x, const i64* incx, float* ap)
{
    l2::spr(uplo, n, alpha, x, incx, ap);
}

void chpr(const char* uplo, const i64* n, const float* alpha, const fcomplex* x, const i64* incx, fcomplex* ap)
{
    l2::spr(uplo, n, alpha, x, incx, ap);
}

}  // namespace orv::plain
