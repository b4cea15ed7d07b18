// General matrix-vector product, full storage: the single-precision members
// (the double-precision ones have kernels per code path, level2/kernels/).

#include "level2/general_mv.h"
#include "level2/level2.h"

namespace orv::l2 {
namespace {

template <typename T>
void gemv(const char* trans, const i64* m, const i64* n, const T* alpha, const T* a, const i64* lda, const T* x,
          const i64* incx, const T* beta, T* y, const i64* incy)
{
    const char t = option_letter(trans);
    const FullColumns<const T> cols{a, *lda};
    with_conjugation<T>(t == 'C', [&]<bool Conj>() {
        general_mv<Conj>(t != 'N', *m, *n, *m - 1, *n - 1, *alpha, cols, x, *incx, *beta, y, *incy);
    });
}

}  // namespace
}  // namespace orv::l2

namespace orv::plain {

void sgemv(const char* trans, const i64* m, const i64* n, const float* alpha, const float* a, const i64* lda,
           const float* x, const i64* incx, const float* beta, float* y, const i64* incy)
{
    l2::gemv(trans, m, n, alpha, a, lda, x, incx, beta, y, incy);
}

void cgemv(const char* trans, const i64* m, const i64* n, const fcomplex* alpha, const fcomplex* a, const i64* lda,
           const fcomplex* x, const i64* incx, const fcomplex* beta, fcomplex* y, const i64* incy)
{
    l2::gemv(trans, m, n, alpha, a, lda, x, incx, beta, y, incy);
}

}  // namespace orv::plain
