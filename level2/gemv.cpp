// General matrix-vector product, full storage.

#include "level2/general_mv.h"
#include "level2/level2.h"

namespace orv::cnr {

void dgemv(const char* trans, const i64* m, const i64* n, const double* alpha, const double* a, const i64* lda,
           const double* x, const i64* incx, const double* beta, double* y, const i64* incy)
{
    const bool t = l2::option(trans) != 'N';
    l2::general_mv<false>(t, *m, *n, *m - 1, *n - 1, *alpha, l2::FullColumns<const double>{a, *lda}, x, *incx, *beta,
                          y, *incy);
}

void zgemv(const char* trans, const i64* m, const i64* n, const dcomplex* alpha, const dcomplex* a, const i64* lda,
           const dcomplex* x, const i64* incx, const dcomplex* beta, dcomplex* y, const i64* incy)
{
    const char t = l2::option(trans);
    const l2::FullColumns<const dcomplex> cols{a, *lda};
    if (t == 'C')
        l2::general_mv<true>(true, *m, *n, *m - 1, *n - 1, *alpha, cols, x, *incx, *beta, y, *incy);
    else
        l2::general_mv<false>(t != 'N', *m, *n, *m - 1, *n - 1, *alpha, cols, x, *incx, *beta, y, *incy);
}

}  // namespace orv::cnr
