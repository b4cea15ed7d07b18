// Pieces shared by the level-2 algorithms: option letters, scalar helpers
// that cover both element types, strided vector views, the beta pass and the
// column views of full, band and packed storage.
//
// The algorithms are templates over the element type (double or dcomplex)
// and over a column view, so that one loop nest serves the full, band and
// packed form of a routine. Baseline code only (see service/types.h): code
// built for a wider instruction set must not instantiate these templates.
#pragma once

#include <type_traits>

#include "service/types.h"

namespace orv::l2 {

template <typename T>
inline constexpr bool is_complex = std::is_same_v<T, dcomplex>;

// First character of an option argument, folded to upper case (ASCII only).
inline char option(const char* letter)
{
    const char c = *letter;
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - ('a' - 'A')) : c;
}

// Options of the triangular routines. 'C' conjugates only complex data.
struct Triangle {
    bool upper;
    bool trans;
    bool conj;
    bool unit;
};

inline Triangle triangle(const char* uplo, const char* trans, const char* diag)
{
    const char t = option(trans);
    return {option(uplo) == 'U', t != 'N', t == 'C', option(diag) == 'U'};
}

inline constexpr bool is_zero(double a) { return a == 0.0; }
inline constexpr bool is_one(double a) { return a == 1.0; }
using orv::is_one;
using orv::is_zero;

inline constexpr i64 min(i64 a, i64 b) { return a < b ? a : b; }
inline constexpr i64 max(i64 a, i64 b) { return a > b ? a : b; }

// Conjugates when Conj is set; real values are their own conjugates.
template <bool Conj>
constexpr double cj(double a)
{
    return a;
}
template <bool Conj>
constexpr dcomplex cj(dcomplex a)
{
    if constexpr (Conj) return conj(a);
    return a;
}

// A Hermitian matrix has a real diagonal: only the real part of a stored
// diagonal element is read, whatever its imaginary part holds.
template <bool Herm>
constexpr double real_diag(double a)
{
    return a;
}
template <bool Herm>
constexpr dcomplex real_diag(dcomplex a)
{
    if constexpr (Herm) return {a.re, 0.0};
    return a;
}

// t * A(j, j), a real diagonal multiplying each part of t on its own.
template <bool Herm>
constexpr double times_diag(double t, double d)
{
    return t * d;
}
template <bool Herm>
constexpr dcomplex times_diag(dcomplex t, dcomplex d)
{
    if constexpr (Herm) return d.re * t;
    return t * d;
}

// A(j, j) + v for an update of a diagonal element; a Hermitian diagonal
// takes only the real part of v and is stored real.
template <bool Herm>
constexpr double add_to_diag(double a, double v)
{
    return a + v;
}
template <bool Herm>
constexpr dcomplex add_to_diag(dcomplex a, dcomplex v)
{
    if constexpr (Herm) return {a.re + v.re, 0.0};
    return a + v;
}

// A vector of n elements with a non-zero increment, indexed by logical
// position; a negative increment starts at the far end.
template <typename T>
struct Strided {
    T* first;
    i64 inc;
    T& operator[](i64 i) const { return first[i * inc]; }
};

template <typename T>
Strided<T> strided(T* base, i64 n, i64 inc)
{
    return {first_element(base, n, inc), inc};
}

// y := beta * y. beta = 0 stores exact zeros without reading y, so NaN and
// infinity in y do not survive; beta = 1 leaves y untouched.
template <typename T>
void scale_by_beta(i64 n, T beta, Strided<T> y)
{
    if (is_one(beta)) return;
    if (is_zero(beta)) {
        for (i64 i = 0; i < n; ++i) y[i] = T{};
        return;
    }
    for (i64 i = 0; i < n; ++i) y[i] = beta * y[i];
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
