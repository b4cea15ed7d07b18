// y := alpha * op(A) * x + beta * y for a general m x n matrix held in any
// column view, its rows in column j limited to j - ku .. j + kl (a full
// matrix is a band matrix with kl = m - 1 and ku = n - 1).
#pragma once

#include "level2/support.h"

namespace orv::l2 {

// Conj conjugates A in the transposed form.
template <bool Conj, typename T, typename Columns>
void general_mv(bool trans, i64 m, i64 n, i64 kl, i64 ku, T alpha, Columns a, const T* x, i64 incx, T beta, T* y,
                i64 incy)
{
    if (m <= 0 || n <= 0 || (is_zero(alpha) && is_one(beta))) return;
    const i64 len_x = trans ? m : n;
    const i64 len_y = trans ? n : m;
    const Strided<const T> xv = strided(x, len_x, incx);
    const Strided<T> yv = strided(y, len_y, incy);

    scale_by(0, len_y, beta, yv);
    if (is_zero(alpha)) return;

    for (i64 j = 0; j < n; ++j) {
        const T* col = a.col(j);
        const i64 first = max(0, j - ku);
        const i64 last = min(m - 1, j + kl);
        if (!trans) {
            // Column form: y += (alpha * x(j)) * A(:, j).
            const T t = alpha * xv[j];
            for (i64 i = first; i <= last; ++i) yv[i] = yv[i] + t * col[i];
        } else {
            // Dot form: y(j) += alpha * (A(:, j) . x).
            T s{};
            for (i64 i = first; i <= last; ++i) s = s + conj_if<Conj>(col[i]) * xv[i];
            yv[j] = yv[j] + alpha * s;
        }
    }
}

}  // namespace orv::l2
