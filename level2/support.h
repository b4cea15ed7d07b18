// Pieces shared by the level-2 algorithms: the diagonal helpers of the Hermitian forms and the column views of full, band and
// packed storage.
//
// The algorithms are templates over the element type (float, double,
// fcomplex, dcomplex) and over a column view, so that one loop nest serves
// the full, band and packed form of a routine. Baseline code only (see
// service/types.h): code built for a wider instruction set must not
// instantiate these templates.
#pragma once

#include "service/elements.h"

namespace orv::l2 {

inline constexpr i64 min(i64 a, i64 b) { return a < b ? a : b; }
inline constexpr i64 max(i64 a, i64 b) { return a > b ? a : b; }

// t * A(j, j), a real diagonal multiplying each part of t on its own.
template <bool Herm, typename T>
constexpr T times_diag(T t, T d)
{
    if constexpr (Herm) return d.re * t;
    else return t * d;
}

// A(j, j) + v for an update of a diagonal element; a Hermitian diagonal
// takes only the real part of v and is stored real.
template <bool Herm, typename T>
constexpr T add_to_diag(T a, T v)
{
    if constexpr (Herm) return {a.re + v.re, {}};
    else return a + v;
}

// Column views. col(j)[i] is element (i, j) for the rows i that the storage
// holds in column j; other rows must not be touched.

// Full storage with leading dimension lda.
template <typename T>
struct FullColumns {
    T* a;
    i64 lda;
    T* col(i64 j) const { return a + j * lda; }
};

// Band storage: element (i, j) lies in row diag + i - j of column j, diag
// being the row that holds the diagonal (ku for a general band matrix, k for
// an upper triangle, 0 for a lower one). lda >= 1, so the offset is never
// negative.
template <typename T>
struct BandColumns {
    T* a;
    i64 lda;
    i64 diag;
    T* col(i64 j) const { return a + (j * (lda - 1) + diag); }
};

// Packed triangle, column by column without gaps. Upper: column j holds rows
// 0..j from j(j+1)/2. Lower: column j holds rows j..n-1 from jn - j(j-1)/2,
// and the view starts j elements earlier so that it is indexed by the row.
template <typename T>
struct PackedColumns {
    T* ap;
    i64 n;
    bool upper;
    T* col(i64 j) const { return ap + (upper ? j * (j + 1) / 2 : j * (2 * n - j - 1) / 2); }
};

}  // namespace orv::l2
