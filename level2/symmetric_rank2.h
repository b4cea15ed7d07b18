// A := alpha * x * y^T + alpha * y * x^T + A on the uplo triangle of an n x n
// matrix in a full or packed column view; when Hermitian,
// A := alpha * x * y^H + conj(alpha) * y * x^H + A.
#pragma once

#include "level2/support.h"

namespace orv::l2 {

// Herm: the diagonal is kept real, its stored imaginary part is not read and
// is replaced by zero even in columns that the update skips.
template <bool Herm, typename T, typename Columns>
void symmetric_rank2(bool upper, i64 n, T alpha, const T* x, i64 incx, const T* y, i64 incy, Columns a)
{
    if (n <= 0 || is_zero(alpha)) return;
    const Strided<const T> xv = strided(x, n, incx);
    const Strided<const T> yv = strided(y, n, incy);
    for (i64 j = 0; j < n; ++j) {
        T* col = a.col(j);
        // Zero x(j) and y(j) leave their column alone, even where x or y hold NaN or infinity.
        if (is_zero(xv[j]) && is_zero(yv[j])) {
            if constexpr (Herm) col[j] = real_diagonal<Herm>(col[j]);
            continue;
        }
        const T t1 = alpha * conj_if<Herm>(yv[j]);
        const T t2 = conj_if<Herm>(alpha * xv[j]);
        const i64 first = upper ? 0 : j + 1;
        const i64 last = upper ? j - 1 : n - 1;
        for (i64 i = first; i <= last; ++i) col[i] = col[i] + xv[i] * t1 + yv[i] * t2;
        col[j] = add_to_diag<Herm>(col[j], xv[j] * t1 + yv[j] * t2);
    }
}

}  // namespace orv::l2
