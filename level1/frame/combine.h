// The ways the threaded reductions fold their threads' partial results, all
// in thread order so that a result depends only on the team size.
#pragma once

#include <cmath>

#include "level1/dispatch.h"

namespace orv::frame {

// s = p(0), then s + p(1), s + p(2), ... strictly left to right; a complex
// sum adds its real and imaginary parts separately in the same order.
template <typename T>
T sum_in_order(const T* partial, int count)
{
    T s = partial[0];
    for (int k = 1; k < count; ++k) s = s + partial[k];
    return s;
}

// The norm of the chunks' norms, through the norm kernel itself, so that
// combining keeps the kernel's protection against overflow and underflow.
inline double norm_of_norms(const double* norm, int count)
{
    const i64 n = count, one = 1;
    return dispatch<&Level1Kernels::dnrm2>(&n, norm, &one);
}

// The same for the complex norm, whose chunks stored (norm, 0).
inline double norm_of_complex_norms(const dcomplex* norm, int count)
{
    const i64 n = count, one = 1;
    return dispatch<&Level1Kernels::dznrm2>(&n, norm, &one);
}

inline double magnitude(double v) { return std::fabs(v); }
inline double magnitude(const dcomplex& v) { return std::fabs(v.re) + std::fabs(v.im); }

// Each chunk found its first largest element (1-based index in the whole
// vector). Walking the chunks in order and taking a later one only when its
// element is strictly larger keeps ties with the earlier chunk, so the
// answer is still the first index of the largest magnitude.
template <typename T>
i64 first_largest(const i64* index, int count, const T* x, i64 incx)
{
    i64 best = index[0];
    double largest = magnitude(x[(best - 1) * incx]);
    for (int k = 1; k < count; ++k) {
        const double value = magnitude(x[(index[k] - 1) * incx]);
        if (value > largest) {
            best = index[k];
            largest = value;
        }
    }
    return best;
}

}  // namespace orv::frame
