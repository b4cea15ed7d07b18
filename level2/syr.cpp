// Symmetric or Hermitian rank-1 update, full storage.

#include "level2/level2.h"
#include "level2/symmetric_rank1.h"

namespace orv::l2 {
namespace {

// Complex matrices are Hermitian.
template <typename T>
void syr(const char* uplo, const i64* n, const real_of<T>* alpha, const T* x, const i64* incx, T* a, const i64* lda)
{
    symmetric_rank1<is_complex<T>>(option_letter(uplo) == 'U', *n, *alpha, x, *incx, FullColumns<T>{a, *lda});
}

}  // namespace
}  // namespace orv::l2

namespace orv::plain {

void ssyr(const char* uplo, const i64* n, const float* alpha, const float* x, const i64* incx, float* a,
          const i64* lda)
{
    l2::syr(uplo, n, alpha, x, incx, a, lda);
}

void cher(const char* uplo, const i64* n, const float* alpha, const fcomplex* x, const i64* incx, fcomplex* a,
          const i64* lda)
{
    l2::syr(uplo, n, alpha, x, incx, a, lda);
}

}  // namespace orv::plain
