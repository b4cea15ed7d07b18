// Types shared by every layer of the library.
//
// Inner layers take 64-bit integers by address (the exports widen the
// caller's 32-bit values once) and complex elements as `dcomplex`, which has
// the caller's layout: two doubles, real part first.
//
// The inline operators below are for baseline-compiled code only. Code built
// with a wider instruction set keeps its own helpers in its own namespace so
// that the linker never merges a wide instantiation into baseline code.
#pragma once

#include <cstdint>

namespace orv {

using i64 = std::int64_t;

struct dcomplex {
    double re;
    double im;
};

constexpr dcomplex operator+(dcomplex a, dcomplex b) { return {a.re + b.re, a.im + b.im}; }
constexpr dcomplex operator-(dcomplex a, dcomplex b) { return {a.re - b.re, a.im - b.im}; }
constexpr dcomplex operator-(dcomplex a) { return {-a.re, -a.im}; }
// Textbook product, each part rounded after its two products are summed.
constexpr dcomplex operator*(dcomplex a, dcomplex b) { return {a.re * b.re - a.im * b.im, a.re * b.im + a.im * b.re}; }
constexpr dcomplex operator*(double s, dcomplex a) { return {s * a.re, s * a.im}; }
constexpr dcomplex conj(dcomplex a) { return {a.re, -a.im}; }
constexpr bool is_zero(dcomplex a) { return a.re == 0.0 && a.im == 0.0; }
constexpr bool is_one(dcomplex a) { return a.re == 1.0 && a.im == 0.0; }

// Quotient by scaled division (the divisor's larger part is divided out
// first), so that neither an overflow nor an underflow of |b|^2 spoils it.
inline dcomplex operator/(dcomplex a, dcomplex b)
{
    const double abs_re = b.re < 0 ? -b.re : b.re;
    const double abs_im = b.im < 0 ? -b.im : b.im;
    if (abs_re >= abs_im) {
        const double r = b.im / b.re;
        const double d = b.re + b.im * r;
        return {(a.re + a.im * r) / d, (a.im - a.re * r) / d};
    }
    const double r = b.re / b.im;
    const double d = b.re * r + b.im;
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
