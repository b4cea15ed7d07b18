// The baseline general matrix-vector kernel, over the element type (double
// or dcomplex), for the def build and its reproducible twin cnr.
//
// The orders of the additions are part of the kernel's contract:
// - y := alpha * op(A) * x: columns in blocks of 8, then 4, then singly;
//   t(k) = alpha * x(j0 + k), and each y(i) becomes
//   (((a(i, j0) * t(0) + y(i)) + a(i, j0+1) * t(1)) + ...). A row's result does
//   not depend on which rows share a vector register, so the rows' loop
//   carries no alignment peel.
// - transposed: columns in groups of 4, then 2, then singly; for each column
//   s = a(0) * x(0), then (with Peel, for real data and unit increments) row 1
//   when that brings the group's last column to 16-byte alignment, then rows in pairs into two
//   lanes started at zero, s := s + (lane 0 + lane 1), then a last odd row;
//   finally y(j) := s * alpha + y(j). Without Peel (cnr) the pairs always
//   start at row 1, so the result does not depend on where A lies.
//
// Baseline code only (see service/types.h).
#pragma once

#include <emmintrin.h>

#include <cstdint>

#include "service/elements.h"

namespace orv::l2 {

// y := beta * y over len logical elements; beta = 0 stores exact zeros and
// beta = 1 leaves y alone. With inc 0 the one element is scaled len times.
template <typename T>
void gemv_scale_y(i64 len, T beta, T* y, i64 inc)
{
    if (is_one(beta)) return;
    if (inc == 0) {
        if (is_zero(beta)) *y = T{};
        else
            for (i64 i = 0; i < len; ++i) *y = beta * *y;
        return;
    }
    const Strided<T> v = strided(y, len, inc);
    if (is_zero(beta))
        for (i64 i = 0; i < len; ++i) v[i] = T{};
    else
        for (i64 i = 0; i < len; ++i) v[i] = beta * v[i];
}

// y(0..m-1) += A(:, 0..C-1) * t in the order above.
template <int C, typename T>
void gemv_axpy_block(i64 m, const T* a, i64 lda, const T* t, Strided<T> y)
{
    i64 i = 0;
    if constexpr (!is_complex<T>) {
        if (y.inc == 1) {
            // Two rows in one register, the same operations on each.
            __m128d tv[C];
#pragma GCC unroll 8
            for (int c = 0; c < C; ++c) tv[c] = _mm_set1_pd(t[c]);
            for (; i + 1 < m; i += 2) {
                __m128d v = _mm_add_pd(_mm_mul_pd(_mm_loadu_pd(a + i), tv[0]), _mm_loadu_pd(&y[i]));
#pragma GCC unroll 8
                for (int c = 1; c < C; ++c) v = _mm_add_pd(v, _mm_mul_pd(_mm_loadu_pd(a + i + c * lda), tv[c]));
                _mm_storeu_pd(&y[i], v);
            }
        }
    }
    for (; i < m; ++i) {
        T v = a[i] * t[0] + y[i];
        for (int c = 1; c < C; ++c) v = v + a[i + c * lda] * t[c];
        y[i] = v;
    }
}

template <int C, typename T>
void gemv_axpy_columns(i64 m, i64& j, i64 n, T alpha, const T* a, i64 lda, Strided<const T> x, Strided<T> y)
{
    for (; j + C <= n; j += C) {
        T t[C];
        for (int c = 0; c < C; ++c) t[c] = alpha * x[j + c];
        gemv_axpy_block<C>(m, a + j * lda, lda, t, y);
    }
}

// s(c) = column c of A (conjugated with Conj) times x, for C columns.
// With `peel`, row 1 goes first when the pairs would otherwise start off the
// 16-byte alignment of the last column.
template <int C, bool Conj, typename T>
void gemv_dot_block(i64 m, const T* a, i64 lda, Strided<const T> x, bool peel, T* s)
{
    for (int c = 0; c < C; ++c) s[c] = conj_if<Conj>(a[c * lda]) * x[0];
    i64 i = 1;
    if (peel) {
        const auto last = reinterpret_cast<std::uintptr_t>(a + 1 + (C - 1) * lda);
        if (m > 1 && last % 16 != 0) {
            for (int c = 0; c < C; ++c) s[c] = s[c] + conj_if<Conj>(a[1 + c * lda]) * x[1];
            i = 2;
        }
    }
    T lane0[C], lane1[C];
    if constexpr (!is_complex<T>) {
        if (x.inc == 1) {
            // The two lanes of each column in one register.
            __m128d acc[C];
#pragma GCC unroll 4
            for (int c = 0; c < C; ++c) acc[c] = _mm_setzero_pd();
            for (; i + 1 < m; i += 2) {
                const __m128d xv = _mm_loadu_pd(&x[i]);
#pragma GCC unroll 4
                for (int c = 0; c < C; ++c)
                    acc[c] = _mm_add_pd(acc[c], _mm_mul_pd(_mm_loadu_pd(a + i + c * lda), xv));
            }
#pragma GCC unroll 4
            for (int c = 0; c < C; ++c) {
                lane0[c] = _mm_cvtsd_f64(acc[c]);
                lane1[c] = _mm_cvtsd_f64(_mm_unpackhi_pd(acc[c], acc[c]));
            }
        }
    }
    if (is_complex<T> || x.inc != 1) {
        for (int c = 0; c < C; ++c) lane0[c] = lane1[c] = T{};
        for (; i + 1 < m; i += 2)
            for (int c = 0; c < C; ++c) {
                lane0[c] = lane0[c] + conj_if<Conj>(a[i + c * lda]) * x[i];
                lane1[c] = lane1[c] + conj_if<Conj>(a[i + 1 + c * lda]) * x[i + 1];
            }
    }
    for (int c = 0; c < C; ++c) s[c] = s[c] + (lane0[c] + lane1[c]);
    if (i < m)
        for (int c = 0; c < C; ++c) s[c] = s[c] + conj_if<Conj>(a[i + c * lda]) * x[i];
}

template <int C, bool Conj, typename T>
void gemv_dot_columns(i64 m, i64& j, i64 n, T alpha, const T* a, i64 lda, Strided<const T> x, bool peel,
                      Strided<T> y)
{
    for (; j + C <= n; j += C) {
        T s[C];
        gemv_dot_block<C, Conj>(m, a + j * lda, lda, x, peel, s);
        for (int c = 0; c < C; ++c) y[j + c] = s[c] * alpha + y[j + c];
    }
}

// The kernel; Peel chooses the def order of the transposed form over cnr's.
template <bool Peel, typename T>
void gemv_baseline(const char* trans, i64 m, i64 n, T alpha, const T* a, i64 lda, const T* x, i64 incx, T beta,
                   T* y, i64 incy)
{
    if (m < 1 || n < 1 || (is_zero(alpha) && is_one(beta))) return;
    const char op = option_letter(trans);
    const bool transposed = op != 'N';
    const i64 len_x = transposed ? m : n, len_y = transposed ? n : m;
    gemv_scale_y(len_y, beta, y, incy);
    if (is_zero(alpha)) return;
    const Strided<const T> xv = strided(x, len_x, incx);
    const Strided<T> yv = strided(y, len_y, incy);
    i64 j = 0;
    if (!transposed) {
        gemv_axpy_columns<8>(m, j, n, alpha, a, lda, xv, yv);
        gemv_axpy_columns<4>(m, j, n, alpha, a, lda, xv, yv);
        gemv_axpy_columns<1>(m, j, n, alpha, a, lda, xv, yv);
        return;
    }
    // Complex elements are 16 bytes: a peel could not change their alignment.
    const bool peel = Peel && !is_complex<T> && incx == 1 && incy == 1;
    with_conjugation<T>(op == 'C', [&]<bool Conj>() {
        gemv_dot_columns<4, Conj>(m, j, n, alpha, a, lda, xv, peel, yv);
        gemv_dot_columns<2, Conj>(m, j, n, alpha, a, lda, xv, peel, yv);
        gemv_dot_columns<1, Conj>(m, j, n, alpha, a, lda, xv, peel, yv);
    });
}

}  // namespace orv::l2
