// General matrix-vector product, band storage.

#include "level2/general_mv.h"
#include "level2/level2.h"

namespace orv::cnr {

void dgbmv(const char* trans, const i64* m, const i64* n, const i64* kl, const i64* ku, const double* alpha,
           const double* a, const i64* lda, const double* x, const i64* incx, const double* beta, double* y,
           const i64* incy)
{
    const bool t = l2::option(trans) != 'N';
    l2::general_mv<false>(t, *m, *n, *kl, *ku, *alpha, l2::BandColumns<const double>{a, *lda, *ku}, x, *incx, *beta,
                          y, *incy);
}

void zgbmv(const char* trans, const i64* m, const i64* n, const i64* kl, const i64* ku, const dcomplex* alpha,
           const dcomplex* a, const i64* lda, const dcomplex* x, const i64* incx, const dcomplex* beta, dcomplex* y,
           const i64* incy)
{
    const char t = l2::option(trans);
    const l2::BandColumns<const dcomplex> cols{a, *lda, *ku};
    if (t == 'C')
        l2::general_mv<true>(true, *m, *n, *kl, *ku, *alpha, cols, x, *incx, *beta, y, *incy);
    else
        l2::general_mv<false>(t != 'N', *m, *n, *kl, *ku, *alpha, cols, x, *incx, *beta, y, *incy);
}

}  // namespace orv::cnr
