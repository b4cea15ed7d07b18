// Pieces shared by the level-3 families: option letters, the scalar helpers
// that let one template serve real and complex elements, element access for
// transposed and symmetric storage, and the beta scaling of C.
#pragma once

#include <type_traits>

#include "service/types.h"

namespace orv::cnr::l3 {

// The first character of an option argument, folded to upper case.
inline char option_letter(const char* p)
{
    const char c = *p;
    return (c >= 'a' && c <= 'z') ? static_cast<char>(c - 32) : c;
}

// Real counterparts of the complex helpers of types.h; both sets live here so
// that a template finds the right one for either element type.
using orv::conj;
using orv::is_one;
using orv::is_zero;
constexpr double conj(double x) { return x; }
constexpr bool is_zero(double x) { return x == 0.0; }
constexpr bool is_one(double x) { return x == 1.0; }

template <typename T>
inline constexpr bool kIsComplex = std::is_same_v<T, dcomplex>;

template <bool Conj, typename T>
constexpr T conj_if(T x)
{
    if constexpr (Conj) return conj(x);
    else return x;
}

// The diagonal of a Hermitian matrix is real by definition; whatever sits in
// the imaginary part of the stored element is not part of the matrix.
template <bool Herm, typename T>
constexpr T diagonal_value(T x)
{
    if constexpr (Herm && kIsComplex<T>) return T{x.re, 0.0};
    else return x;
}

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
    if (r == c) return diagonal_value<Herm>(a[r + r * lda]);
    const bool stored = upper ? r < c : r > c;
    return stored ? a[r + c * lda] : conj_if<Herm>(a[c + r * lda]);
}

// Rows [first, last) of column j that lie in the named triangle of an n x n matrix.
struct RowRange {
    i64 first;
    i64 last;
};
inline RowRange triangle_rows(bool upper, i64 j, i64 n) { return upper ? RowRange{0, j + 1} : RowRange{j, n}; }

// Options of a triangular operand (the product and the solve).
struct TriangleShape {
    bool left;   // A multiplies from the left
    bool upper;  // A is stored in its upper triangle
    bool trans;  // op(A) is A^T or A^H
    bool unit;   // the diagonal is taken as ones and never read
};
inline TriangleShape triangle_shape(const char* side, const char* uplo, const char* transa, const char* diag)
{
    return {option_letter(side) == 'L', option_letter(uplo) == 'U', option_letter(transa) != 'N',
            option_letter(diag) == 'U'};
}

// Runs body.operator()<Conj>() with Conj set when `trans` asks for the
// conjugate transpose of complex data; for real data 'C' is a plain
// transpose.
template <typename T, typename Body>
inline void with_conjugation(const char* trans, const Body& body)
{
    if (kIsComplex<T> && option_letter(trans) == 'C') body.template operator()<true>();
    else body.template operator()<false>();
}

// c[first..last) := beta * c. A zero beta stores zeros without reading c, so
// that NaN or Inf left in C does not survive it; a unit beta leaves c alone.
template <typename T, typename S>
inline void scale_column(i64 first, i64 last, S beta, T* c)
{
    if (is_one(beta)) return;
    if (is_zero(beta)) {
        for (i64 i = first; i < last; ++i) c[i] = T{};
        return;
    }
    for (i64 i = first; i < last; ++i) c[i] = beta * c[i];
}

}  // namespace orv::cnr::l3
