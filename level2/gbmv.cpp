// General matrix-vector product, band storage.

#include "level2/general_mv.h"
#include "level2/level2.h"

namespace orv::l2 {
namespace {

template <typename T>
void gbmv(const char* trans, const i64* m, const i64* n, const i64* kl, const i64* ku, const T* alpha, const T* a,
          const i64* lda, const T* x, const i64* incx, const T* beta, T* y, const i64* incy)
{
    const char t = option_letter(trans);
    const BandColumns<const T> cols{a, *lda, *ku};
    with_conjugation<T>(t == 'C', [&]<bool Conj>() {
        general_mv<Conj>(t != 'N', *m, *n, *kl, *ku, *alpha, cols, x, *incx, *beta, y, *incy);
    });
}

}  // namespace
}  // namespace orv::l2

namespace orv::plain {

void sgbmv(const char* trans, const i64* m, const i64* n, const i64* kl, const i64* ku, const float* alpha,
           const float* a, const i64* lda, const float* x, const i64* incx, const float* beta, float* y,
           const i64* incy)
{
    l2::gbmv(trans, m, n, kl, ku, alpha, a, lda, x, incx, beta, y, incy);
}

void dgbmv(const char* trans, const i64* m, const i64* n, const i64* kl, const i64* ku, const double* alpha,
           const double* a, const i64* lda, const double* x, const i64* incx, const double* beta, double* y,
           const i64* incy)
{
    l2::gbmv(trans, m, n, kl, ku, alpha, a, lda, x, incx, beta, y, incy);
}

void cgbmv(const char* trans, const i64* m, const i64* n, const i64* kl, const i64* ku, const fcomplex* alpha,
           const fcomplex* a, const i64* lda, const fcomplex* x, const i64* incx, const fcomplex* beta, fcomplex* y,
           const i64* incy)
{
    l2::gbmv(trans, m, n, kl, ku, alpha, a, lda, x, incx, beta, y, incy);
}

void zgbmv(const char* trans, const i64* m, const i64* n, const i64* kl, const i64* ku, const dcomplex* alpha,
           const dcomplex* a, const i64* lda, const dcomplex* x, const i64* incx, const dcomplex* beta, dcomplex* y,
           const i64* incy)
{
    l2::gbmv(trans, m, n, kl, ku, alpha, a, lda, x, incx, beta, y, incy);
}

}  // namespace orv::plain
