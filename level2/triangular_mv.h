// x := op(A) * x for an n x n triangular matrix in any column view, its rows
// in column j limited to k off the diagonal (k = n - 1 for full and packed
// storage). A unit diagonal is never read.
#pragma once

#include "level2/support.h"

namespace orv::l2 {

// Columns are visited in the order that reads every x(j) before it is
// overwritten, so the product needs no copy of x.
template <bool Conj, typename T, typename Columns>
void triangular_mv_in_place(Triangle tri, i64 n, i64 k, Columns a, T* x, i64 incx)
{
    const Strided<T> xv = strided(x, n, incx);
    if (!tri.trans && tri.upper) {
        for (i64 j = 0; j < n; ++j) {
            const T* col = a.col(j);
            const T t = xv[j];
            for (i64 i = max(0, j - k); i < j; ++i) xv[i] = xv[i] + t * col[i];
            if (!tri.unit) xv[j] = xv[j] * col[j];
        }
    } else if (!tri.trans) {
        for (i64 j = n - 1; j >= 0; --j) {
            const T* col = a.col(j);
            const T t = xv[j];
            for (i64 i = min(n - 1, j + k); i > j; --i) xv[i] = xv[i] + t * col[i];
            if (!tri.unit) xv[j] = xv[j] * col[j];
        }
    } else if (tri.upper) {
        for (i64 j = n - 1; j >= 0; --j) {
            const T* col = a.col(j);
            T t = xv[j];
            if (!tri.unit) t = t * conj_if<Conj>(col[j]);
            for (i64 i = j - 1; i >= max(0, j - k); --i) t = t + conj_if<Conj>(col[i]) * xv[i];
            xv[j] = t;
        }
    } else {
        for (i64 j = 0; j < n; ++j) {
            const T* col = a.col(j);
            T t = xv[j];
            if (!tri.unit) t = t * conj_if<Conj>(col[j]);
            const i64 last = min(n - 1, j + k);
            for (i64 i = j + 1; i <= last; ++i) t = t + conj_if<Conj>(col[i]) * xv[i];
            xv[j] = t;
        }
    }
}

template <typename T, typename Columns>
void triangular_mv(Triangle tri, i64 n, i64 k, Columns a, T* x, i64 incx)
{
    if (n <= 0) return;
    if constexpr (is_complex<T>) {
        if (tri.conj) return triangular_mv_in_place<true>(tri, n, k, a, x, incx);
    }
    triangular_mv_in_place<false>(tri, n, k, a, x, incx);
}

}  // namespace orv::l2
