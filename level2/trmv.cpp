// Triangular matrix-vector product, full storage: the single-precision
// members (the double-precision ones have kernels per code path,
// level2/kernels/).

#include "level2/level2.h"
#include "level2/triangular_mv.h"

namespace orv::l2 {
namespace {

template <typename T>
void trmv(const char* uplo, const char* trans, const char* diag, const i64* n, const T* a, const i64* lda, T* x,
          const i64* incx)
{
    triangular_mv(triangle(uplo, trans, diag), *n, *n - 1, FullColumns<const T>{a, *lda}, x, *incx);
}

}  // namespace
}  // namespace orv::l2

namespace orv::plain {

void strmv(const char* uplo, const char* trans, const char* diag, const i64* n, const float* a, const i64* lda,
           float* x, const i64* incx)
{
    l2::trmv(uplo, trans, diag, n, a, lda, x, incx);
}

void ctrmv(const char* uplo, const char* trans, const char* diag, const i64* n, const fcomplex* a, const i64* lda,
           fcomplex* x, const i64* incx)
{
    l2::trmv(uplo, trans, diag, n, a, lda, x, incx);
}

}  // namespace orv::plain
