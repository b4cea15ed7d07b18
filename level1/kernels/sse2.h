// Small SSE2 helpers shared by the baseline vector kernels.
//
// These are inline functions with external linkage: a file built with a wider
// instruction set must not include this header, or the linker could keep its
// wider copy for the baseline kernels too.
#pragma once

#if defined(__AVX__)
#error "level1/kernels/sse2.h is for baseline-compiled files only"
#endif

#include <emmintrin.h>

#include <cstdint>

#include "service/types.h"

namespace orv::sse2 {

inline bool aligned8(const void* p) { return (reinterpret_cast<std::uintptr_t>(p) & 7) == 0; }
inline bool aligned16(const void* p) { return (reinterpret_cast<std::uintptr_t>(p) & 15) == 0; }
inline bool same_alignment16(const void* a, const void* b)
{
    return ((reinterpret_cast<std::uintptr_t>(a) ^ reinterpret_cast<std::uintptr_t>(b)) & 15) == 0;
}

// Both increments 1 or both -1. The contiguous paths then walk forwards from
// the base addresses, which pairs the same elements as a backward walk.
inline bool unit_pair(i64 incx, i64 incy) { return incx == incy && (incx == 1 || incx == -1); }
inline bool unit(i64 inc) { return inc == 1 || inc == -1; }

template <bool Aligned>
inline __m128d load(const double* p)
{
    if constexpr (Aligned) return _mm_load_pd(p);
    else return _mm_loadu_pd(p);
}
template <bool Aligned>
inline void store(double* p, __m128d v)
{
    if constexpr (Aligned) _mm_store_pd(p, v);
    else _mm_storeu_pd(p, v);
}
inline const double* parts(const dcomplex* p) { return &p->re; }
inline double* parts(dcomplex* p) { return &p->re; }

// Two strided elements: a into lane 0, b into lane 1.
inline __m128d gather(const double* a, const double* b) { return _mm_loadh_pd(_mm_load_sd(a), b); }
inline void scatter(double* a, double* b, __m128d v)
{
    _mm_storel_pd(a, v);
    _mm_storeh_pd(b, v);
}

// Magnitude by clearing the sign bit: the magnitude of a NaN stays a NaN.
inline __m128d abs(__m128d v) { return _mm_andnot_pd(_mm_set1_pd(-0.0), v); }
inline __m128d swap_lanes(__m128d v) { return _mm_shuffle_pd(v, v, 1); }
inline double lane0(__m128d v) { return _mm_cvtsd_f64(v); }
inline double lane1(__m128d v) { return _mm_cvtsd_f64(_mm_unpackhi_pd(v, v)); }
// lane 0 + lane 1, in that order.
inline double hsum(__m128d v) { return lane0(v) + lane1(v); }

// Four two-lane accumulators, combined lane by lane as ((A0 + A1) + A2) + A3
// and then lane 0 + lane 1.
struct Acc4 {
    __m128d a0 = _mm_setzero_pd();
    __m128d a1 = _mm_setzero_pd();
    __m128d a2 = _mm_setzero_pd();
    __m128d a3 = _mm_setzero_pd();

    void add_lane0(double v) { a0 = _mm_add_sd(a0, _mm_set_sd(v)); }
    double total() const { return hsum(_mm_add_pd(_mm_add_pd(_mm_add_pd(a0, a1), a2), a3)); }
};

}  // namespace orv::sse2
