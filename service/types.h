// Types shared by every layer of the library.
//
// Inner layers take 64-bit integers by address (the exports widen the
// caller's 32-bit values once) and complex elements as `dcomplex` or
// `fcomplex`, which have the caller's layout: two doubles (floats), real part
// first.
//
// The inline operators below are for baseline-compiled code only. Code built
// with a wider instruction set keeps its own helpers in its own namespace so
// that the linker never merges a wide instantiation into baseline code.
#pragma once

#include <cstdint>
#include <type_traits>

namespace orv {

using i64 = std::int64_t;

// A complex element as callers lay it out: two values of the real type R,
// real part first, no padding.
template <typename R>
struct Complex {
    R re;
    R im;
};
using dcomplex = Complex<double>;
using fcomplex = Complex<float>;

template <typename R>
constexpr Complex<R> operator+(Complex<R> a, Complex<R> b) { return {a.re + b.re, a.im + b.im}; }
template <typename R>
constexpr Complex<R> operator-(Complex<R> a, Complex<R> b) { return {a.re - b.re, a.im - b.im}; }
template <typename R>
constexpr Complex<R> operator-(Complex<R> a) { return {-a.re, -a.im}; }
// Textbook product, each part rounded after its two products are summed.
template <typename R>
constexpr Complex<R> operator*(Complex<R> a, Complex<R> b)
{
    return {a.re * b.re - a.im * b.im, a.re * b.im + a.im * b.re};
}
// A real scalar of the element's precision; it takes no part in deduction,
// so that it converts like a plain argument.
template <typename R>
constexpr Complex<R> operator*(std::type_identity_t<R> s, Complex<R> a) { return {s * a.re, s * a.im}; }
template <typename R>
constexpr Complex<R> conj(Complex<R> a) { return {a.re, -a.im}; }
template <typename R>
constexpr bool is_zero(Complex<R> a) { return a.re == R(0) && a.im == R(0); }
template <typename R>
constexpr bool is_one(Complex<R> a) { return a.re == R(1) && a.im == R(0); }

// Quotient by scaled division (the divisor's larger part is divided out
// first), so that neither an overflow nor an underflow of |b|^2 spoils it.
template <typename R>
inline Complex<R> operator/(Complex<R> a, Complex<R> b)
{
    const R abs_re = b.re < 0 ? -b.re : b.re;
    const R abs_im = b.im < 0 ? -b.im : b.im;
    if (abs_re >= abs_im) {
        const R r = b.im / b.re;
        const R d = b.re + b.im * r;
        return {(a.re + a.im * r) / d, (a.im - a.re * r) / d};
    }
    const R r = b.re / b.im;
    const R d = b.re * r + b.im;
    return {(a.re * r + a.im) / d, (a.im * r - a.re) / d};
}

// Address of logical element 0 of a strided vector: with a negative increment
// the walk starts at the far end (base + (1 - n) * inc).
template <typename T>
constexpr T* first_element(T* base, i64 n, i64 inc)
{
    return inc < 0 ? base + (1 - n) * inc : base;
}

}  // namespace orv
