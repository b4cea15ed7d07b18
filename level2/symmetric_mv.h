// y := alpha * A * x + beta * y for a symmetric or Hermitian n x n matrix of
// which only the uplo triangle is stored, in any column view, its rows in
// column j limited to k off the diagonal (k = n - 1 for full and packed storage).
#pragma once

#include "level2/support.h"

namespace orv::l2 {

// Herm: A is Hermitian; the mirrored triangle is the conjugate of the stored
// one and only the real part of the diagonal is read.
template <bool Herm, typename T, typename Columns>
void symmetric_mv(bool upper, i64 n, i64 k, T alpha, Columns a, const T* x, i64 incx, T beta, T* y, i64 incy)
{
    if (n <= 0 || (is_zero(alpha) && is_one(beta))) return;
    const Strided<const T> xv = strided(x, n, incx);
    const Strided<T> yv = strided(y, n, incy);

    scale_by(0, n, beta, yv);
    if (is_zero(alpha)) return;

    // Each stored column is read once: it adds alpha * x(j) times itself to y
    // (the stored triangle) and its dot product with x to y(j) (the mirror).
    for (i64 j = 0; j < n; ++j) {
        const T* col = a.col(j);
        const T t1 = alpha * xv[j];
        T t2{};
        if (upper) {
            for (i64 i = max(0, j - k); i < j; ++i) {
                yv[i] = yv[i] + t1 * col[i];
                t2 = t2 + conj_if<Herm>(col[i]) * xv[i];
            }
            yv[j] = yv[j] + times_diag<Herm>(t1, col[j]) + alpha * t2;
        } else {
            yv[j] = yv[j] + times_diag<Herm>(t1, col[j]);
            const i64 last = min(n - 1, j + k);
            for (i64 i = j + 1; i <= last; ++i) {
                yv[i] = yv[i] + t1 * col[i];
                t2 = t2 + conj_if<Herm>(col[i]) * xv[i];
            }
            yv[j] = yv[j] + alpha * t2;
        }
    }
}

}  // namespace orv::l2
