// A := alpha * x * x^T + A (x^H when Hermitian) on the uplo triangle of an
// n x n matrix in a full or packed column view; alpha is real for both forms.
#pragma once

#include "level2/support.h"

namespace orv::l2 {

// Herm: the diagonal is kept real, its stored imaginary part is not read and
// is replaced by zero even in columns that the update skips.
template <bool Herm, typename T, typename Columns>
void symmetric_rank1(bool upper, i64 n, real_of<T> alpha, const T* x, i64 incx, Columns a)
{
    if (n <= 0 || is_zero(alpha)) return;
    const Strided<const T> xv = strided(x, n, incx);
    for (i64 j = 0; j < n; ++j) {
        T* col = a.col(j);
        // A zero x(j) leaves its column alone, even where x holds NaN or infinity.
        if (is_zero(xv[j])) {
            if constexpr (Herm) col[j] = real_diagonal<Herm>(col[j]);
            continue;
        }
        const T t = alpha * conj_if<Herm>(xv[j]);
        const i64 first = upper ? 0 : j + 1;
        const i64 last = upper ? j - 1 : n - 1;
        for (i64 i = first; i <= last; ++i) col[i] = col[i] + xv[i] * t;
        col[j] = add_to_diag<Herm>(col[j], xv[j] * t);
    }
}

}  // namespace orv::l2
