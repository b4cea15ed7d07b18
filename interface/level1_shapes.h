// The entry sequence of the level-1 exports, once per argument-list shape.
//
// Each shape takes the routine's name and the caller's arguments; its
// template argument is the inner layer (a threaded driver, a single-thread
// member or a dispatched family member), which receives the widened integers
// and the caller's addresses typed as it declares them. A shape returns what
// the inner layer returns. Level-1 routines have no argument checker.
#pragma once

#include "interface/entry.h"

namespace orv {

// A reduction of one vector: sums, norms, the index of the largest magnitude
template <auto Inner>
[[gnu::always_inline]] inline auto reduction_shape(const char* name, const int* n, const auto* x, const int* incx)
{
    static const int* verbose = &kVerboseUnknown;
    const int mode = entry_mode(verbose);
    const i64 n64 = *n, incx64 = *incx;
    return run_traced(verbose, mode, [&] { return call_inner<Inner>(&n64, typed(x), &incx64); },
        name, "(%d,%p,%d)", n, x, incx);
}

// Two vectors: copy, swap, the real dot products
template <auto Inner>
[[gnu::always_inline]] inline auto pair_shape(const char* name, const int* n, auto* x, const int* incx, auto* y,
                                              const int* incy)
{
    static const int* verbose = &kVerboseUnknown;
    const int mode = entry_mode(verbose);
    const i64 n64 = *n, incx64 = *incx, incy64 = *incy;
    return run_traced(verbose, mode, [&] { return call_inner<Inner>(&n64, typed(x), &incx64, typed(y), &incy64); },
        name, "(%d,%p,%d,%p,%d)", n, x, incx, y, incy);
}

// A scalar and two vectors: axpy, the dot product with a start value
template <auto Inner>
[[gnu::always_inline]] inline auto axpy_shape(const char* name, const int* n, const auto* alpha, const auto* x,
                                              const int* incx, auto* y, const int* incy)
{
    static const int* verbose = &kVerboseUnknown;
    const int mode = entry_mode(verbose);
    const i64 n64 = *n, incx64 = *incx, incy64 = *incy;
    return run_traced(verbose, mode,
        [&] { return call_inner<Inner>(&n64, typed(alpha), typed(x), &incx64, typed(y), &incy64); },
        name, "(%d,%p,%p,%d,%p,%d)", n, alpha, x, incx, y, incy);
}

// x := alpha * x
template <auto Inner>
[[gnu::always_inline]] inline void scal_shape(const char* name, const int* n, const auto* alpha, auto* x,
                                              const int* incx)
{
    static const int* verbose = &kVerboseUnknown;
    const int mode = entry_mode(verbose);
    const i64 n64 = *n, incx64 = *incx;
    run_traced(verbose, mode, [&] { call_inner<Inner>(&n64, typed(alpha), typed(x), &incx64); },
        name, "(%d,%p,%p,%d)", n, alpha, x, incx);
}

// Applies the plane rotation (c, s) to two vectors
template <auto Inner>
[[gnu::always_inline]] inline void rot_shape(const char* name, const int* n, auto* x, const int* incx, auto* y,
                                             const int* incy, const auto* c, const auto* s)
{
    static const int* verbose = &kVerboseUnknown;
    const int mode = entry_mode(verbose);
    const i64 n64 = *n, incx64 = *incx, incy64 = *incy;
    run_traced(verbose, mode,
        [&] { call_inner<Inner>(&n64, typed(x), &incx64, typed(y), &incy64, typed(c), typed(s)); },
        name, "(%d,%p,%d,%p,%d,%p,%p)", n, x, incx, y, incy, c, s);
}

// Applies the modified rotation `param` to two vectors
template <auto Inner>
[[gnu::always_inline]] inline void rotm_shape(const char* name, const int* n, auto* x, const int* incx, auto* y,
                                              const int* incy, const auto* param)
{
    static const int* verbose = &kVerboseUnknown;
    const int mode = entry_mode(verbose);
    const i64 n64 = *n, incx64 = *incx, incy64 = *incy;
    run_traced(verbose, mode, [&] { call_inner<Inner>(&n64, typed(x), &incx64, typed(y), &incy64, typed(param)); },
        name, "(%d,%p,%d,%p,%d,%p)", n, x, incx, y, incy, param);
}

// Routines whose arguments are all scalars by address, with no integer among
// them (the rotation constructors, the magnitude of one complex number): each
// is shown by its address, `fmt` holding one %p per argument.
template <auto Inner>
[[gnu::always_inline]] inline auto scalars_shape(const char* name, const char* fmt, auto*... args)
{
    static const int* verbose = &kVerboseUnknown;
    const int mode = entry_mode(verbose);
    return run_traced(verbose, mode, [&] { return call_inner<Inner>(typed(args)...); }, name, fmt, args...);
}

// The complex dot products: the inner layer writes the result to the address
// it gets first; the export hands it back as the platform's Fortran
// compilers expect a complex function value.
#if defined(_WIN32)
// Through a hidden first argument, the address that receives the value; the
// call text shows it first.
template <auto Inner>
[[gnu::always_inline]] inline void complex_dot_shape(const char* name, void* result, const int* n, const void* x,
                                                     const int* incx, const void* y, const int* incy)
{
    static const int* verbose = &kVerboseUnknown;
    const int mode = entry_mode(verbose);
    const i64 n64 = *n, incx64 = *incx, incy64 = *incy;
    run_traced(verbose, mode,
        [&] { call_inner<Inner>(typed(result), &n64, typed(x), &incx64, typed(y), &incy64); },
        name, "(%p,%d,%p,%d,%p,%d)", result, n, x, incx, y, incy);
}
#else
// In registers, as gfortran returns a COMPLEX function result: a C complex
// value of the element's precision.
template <typename F>
struct FirstParameter;
template <typename R, typename First, typename... Rest>
struct FirstParameter<R (*)(First, Rest...)> {
    using type = First;
};

inline __complex__ double c_complex(dcomplex value)
{
    __complex__ double c;
    __real__ c = value.re;
    __imag__ c = value.im;
    return c;
}
inline __complex__ float c_complex(fcomplex value)
{
    __complex__ float c;
    __real__ c = value.re;
    __imag__ c = value.im;
    return c;
}

template <auto Inner>
[[gnu::always_inline]] inline auto complex_dot_shape(const char* name, const int* n, const void* x, const int* incx,
                                                     const void* y, const int* incy)
{
    static const int* verbose = &kVerboseUnknown;
    const int mode = entry_mode(verbose);
    const i64 n64 = *n, incx64 = *incx, incy64 = *incy;
    std::remove_pointer_t<typename FirstParameter<decltype(Inner)>::type> result;
    run_traced(verbose, mode, [&] { call_inner<Inner>(&result, &n64, typed(x), &incx64, typed(y), &incy64); },
        name, "(%d,%p,%d,%p,%d)", n, x, incx, y, incy);
    return c_complex(result);
}
#endif

}  // namespace orv
