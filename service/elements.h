// Helpers shared by the plain routines of every level, whose algorithms are
// templates over the element type (float, double, fcomplex, dcomplex): option
// letters, what an element type is, the scalar tests and conjugation that
// cover real and complex elements alike, the choice of conjugation, strided
// vector views and the scaling of an output by beta.
//
// Baseline code only (see service/types.h): code built for a wider
// instruction set must not instantiate these templates.
#pragma once

#include <concepts>

#include "service/types.h"

namespace orv {

// The first character of an option argument, folded to upper case (ASCII only).
inline char option_letter(const char* p)
{
    const char c = *p;
    return (c >= 'a' && c <= 'z') ? static_cast<char>(c - ('a' - 'A')) : c;
}

template <typename T>
inline constexpr bool is_complex = false;
template <typename R>
inline constexpr bool is_complex<Complex<R>> = true;

// The real type of an element type: the type of a complex element's parts.
template <typename T>
struct RealPart {
    using type = T;
};
template <typename R>
struct RealPart<Complex<R>> {
    using type = R;
};
template <typename T>
using real_of = typename RealPart<T>::type;

// Real counterparts of the complex helpers of types.h.
template <std::floating_point R>
constexpr bool is_zero(R a)
{
    return a == R(0);
}
template <std::floating_point R>
constexpr bool is_one(R a)
{
    return a == R(1);
}
template <std::floating_point R>
constexpr R conj(R a)
{
    return a;
}

// Options of a triangular operand. 'C' conjugates only complex data.
struct Triangle {
    bool upper;  // stored in its upper triangle
    bool trans;  // op(A) is A^T or A^H
    bool conj;   // op(A) is A^H
    bool unit;   // the diagonal is taken as ones and never read
};

inline Triangle triangle(const char* uplo, const char* trans, const char* diag)
{
    const char t = option_letter(trans);
    return {option_letter(uplo) == 'U', t != 'N', t == 'C', option_letter(diag) == 'U'};
}

// The element one: 1, or (1, 0).
template <typename T>
constexpr T one_of()
{
    if constexpr (is_complex<T>) return {1, 0};
    else return T(1);
}

template <bool Conj, typename T>
constexpr T conj_if(T a)
{
    if constexpr (Conj) return conj(a);
    else return a;
}

// Runs body.operator()<Conj>() with Conj set when the caller asks to
// conjugate complex data (a conjugate transpose); real data have nothing to
// conjugate, so 'C' is a plain transpose and no conjugating instance is made.
template <typename T, typename Body>
void with_conjugation(bool conjugate, const Body& body)
{
    if constexpr (is_complex<T>) {
        if (conjugate) return body.template operator()<true>();
    }
    body.template operator()<false>();
}

// The diagonal of a Hermitian matrix is real by definition: whatever sits in
// the imaginary part of a stored diagonal element is not part of the matrix.
template <bool Herm, typename T>
constexpr T real_diagonal(T a)
{
    if constexpr (Herm && is_complex<T>) return {a.re, {}};
    else return a;
}

// A vector of n elements, indexed by logical position; a negative increment
// starts at the far end.
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

// y[first..last) := s * y, y being a pointer or a view indexed by logical
// position, as an output is scaled by beta: a zero s stores zeros without
// reading y, so that NaN or infinity left there does not survive it; s = 1
// leaves y alone.
template <typename S, typename Y>
void scale_by(i64 first, i64 last, S s, Y y)
{
    if (is_one(s)) return;
    if (is_zero(s)) {
        for (i64 i = first; i < last; ++i) y[i] = {};
        return;
    }
    for (i64 i = first; i < last; ++i) y[i] = s * y[i];
}

}  // namespace orv
