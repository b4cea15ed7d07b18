// Solves op(A) * x = b in place for an n x n triangular matrix in any column
// view, its rows in column j limited to k off the diagonal (k = n - 1 for
// full and packed storage). A unit diagonal is never read; a zero one gives
// infinities or NaN by plain division.
#pragma once

#include "level2/support.h"

namespace orv::l2 {

// Substitution starts at the triangle's tip: the column form subtracts each
// solved x(j) from the rows still to come, the dot form subtracts the solved
// rows' contributions from x(j) before dividing.
template <bool Conj, typename T, typename Columns>
void triangular_sv_in_place(Triangle tri, i64 n, i64 k, Columns a, T* x, i64 incx)
{
    const Strided<T> xv = strided(x, n, incx);
    if (!tri.trans && tri.upper) {
        for (i64 j = n - 1; j >= 0; --j) {
            const T* col = a.col(j);
            if (!tri.unit) xv[j] = xv[j] / col[j];
            const T t = xv[j];
            for (i64 i = j - 1; i >= max(0, j - k); --i) xv[i] = xv[i] - t * col[i];
        }
    } else if (!tri.trans) {
        for (i64 j = 0; j < n; ++j) {
            const T* col = a.col(j);
            if (!tri.unit) xv[j] = xv[j] / col[j];
            const T t = xv[j];
            const i64 last = min(n - 1, j + k);
            for (i64 i = j + 1; i <= last; ++i) xv[i] = xv[i] - t * col[i];
        }
    } else if (tri.upper) {
        for (i64 j = 0; j < n; ++j) {
            const T* col = a.col(j);
            T t = xv[j];
            for (i64 i = max(0, j - k); i < j; ++i) t = t - conj_if<Conj>(col[i]) * xv[i];
            if (!tri.unit) t = t / conj_if<Conj>(col[j]);
            xv[j] = t;
        }
    } else {
        for (i64 j = n - 1; j >= 0; --j) {
            const T* col = a.col(j);
            T t = xv[j];
            for (i64 i = min(n - 1, j + k); i > j; --i) t = t - conj_if<Conj>(col[i]) * xv[i];
            if (!tri.unit) t = t / conj_if<Conj>(col[j]);
            xv[j] = t;
        }
    }
}

template <typename T, typename Columns>
void triangular_sv(Triangle tri, i64 n, i64 k, Columns a, T* x, i64 incx)
{
    if (n <= 0) return;
    if constexpr (is_complex<T>) {
        if (tri.conj) return triangular_sv_in_place<true>(tri, n, k, a, x, incx);
    }
    triangular_sv_in_place<false>(tri, n, k, a, x, incx);
}

}  // namespace orv::l2
