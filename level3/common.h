// Pieces shared by the level-3 families: element access for transposed and
// symmetric storage and the rows of a triangle.
#pragma once

#include "service/elements.h"

namespace orv::plain::l3 {

// Element (r, c) of op(X), X column-major with leading dimension ld;
// op transposes when `trans` is set and also conjugates when Conj is.
template <bool Conj, typename T>
inline T op_element(const T* x, i64 ld, bool trans, i64 r, i64 c)
{
    return trans ? conj_if<Conj>(x[c + r * ld]) : x[r + c * ld];
}

// Element (r, c) of a symmetric (Herm: Hermitian) matrix of which only the
// upper or the lower triangle is stored; the other triangle is never read.
template <bool Herm, typename T>
inline T symmetric_element(const T* a, i64 lda, bool upper, i64 r, i64 c)
{
    if (r == c) return real_diagonal<Herm>(a[r + r * lda]);
    const bool stored = upper ? r < c : r > c;
    return stored ? a[r + c * lda] : conj_if<Herm>(a[c + r * lda]);
}

// Rows [first, last) of column j that lie in the named triangle of an n x n matrix.
struct RowRange {
    i64 first;
    i64 last;
};
inline RowRange triangle_rows(bool upper, i64 j, i64 n) { return upper ? RowRange{0, j + 1} : RowRange{j, n}; }

}  // namespace orv::plain::l3
