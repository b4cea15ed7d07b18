// General rank-1 update A := alpha * x * y^T + A (y conjugated for gerc).

#include "level2/level2.h"
#include "level2/support.h"

namespace orv::l2 {
namespace {

template <bool Conj, typename T>
void rank1(i64 m, i64 n, T alpha, const T* x, i64 incx, const T* y, i64 incy, T* a, i64 lda)
{
    if (m <= 0 || n <= 0 || is_zero(alpha)) return;
    const Strided<const T> xv = strided(x, m, incx);
    const Strided<const T> yv = strided(y, n, incy);
    for (i64 j = 0; j < n; ++j) {
        // A zero y(j) leaves its column alone, even where x holds NaN or infinity.
        if (is_zero(yv[j])) continue;
        const T t = alpha * conj_if<Conj>(yv[j]);
        T* col = a + j * lda;
        for (i64 i = 0; i < m; ++i) col[i] = col[i] + xv[i] * t;
    }
}

}  // namespace
}  // namespace orv::l2

namespace orv::plain {

void sger(const i64* m, const i64* n, const float* alpha, const float* x, const i64* incx, const float* y,
          const i64* incy, float* a, const i64* lda)
{
    l2::rank1<false>(*m, *n, *alpha, x, *incx, y, *incy, a, *lda);
}

void cgeru(const i64* m, const i64* n, const fcomplex* alpha, const fcomplex* x, const i64* incx, const fcomplex* y,
           const i64* incy, fcomplex* a, const i64* lda)
{
    l2::rank1<false>(*m, *n, *alpha, x, *incx, y, *incy, a, *lda);
}

void cgerc(const i64* m, const i64* n, const fcomplex* alpha, const fcomplex* x, const i64* incx, const fcomplex* y,
           const i64* incy, fcomplex* a, const i64* lda)
{
    l2::rank1<true>(*m, *n, *alpha, x, *incx, y, *incy, a, *lda);
}

}  // namespace orv::plain
