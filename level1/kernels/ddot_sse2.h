// Steps of the baseline real dot product, shared by the baseline kernel and
// the alignment-independent one. Each step takes the index of the next
// element and returns the index after the elements it consumed.
#pragma once

#include "level1/kernels/sse2.h"

namespace orv::sse2 {

template <bool AX, bool AY>
inline __m128d prod(const double* x, const double* y, i64 i)
{
    return _mm_mul_pd(load<AX>(x + i), load<AY>(y + i));
}

// One step of 8 elements: one product pair into each Ak.
template <bool AX, bool AY>
inline void dot_step8(const double* x, const double* y, i64 i, Acc4& acc)
{
    acc.a0 = _mm_add_pd(acc.a0, prod<AX, AY>(x, y, i + 0));
    acc.a1 = _mm_add_pd(acc.a1, prod<AX, AY>(x, y, i + 2));
    acc.a2 = _mm_add_pd(acc.a2, prod<AX, AY>(x, y, i + 4));
    acc.a3 = _mm_add_pd(acc.a3, prod<AX, AY>(x, y, i + 6));
}

// 16 elements per step as eight products P0..P7: Ak := (Ak + Pk) + Pk+4;
// then at most one step of 8.
template <bool AX, bool AY>
inline i64 dot_by16(i64 n, const double* x, const double* y, i64 i, Acc4& acc)
{
    for (; n - i >= 16; i += 16) {
        acc.a0 = _mm_add_pd(_mm_add_pd(acc.a0, prod<AX, AY>(x, y, i + 0)), prod<AX, AY>(x, y, i + 8));
        acc.a1 = _mm_add_pd(_mm_add_pd(acc.a1, prod<AX, AY>(x, y, i + 2)), prod<AX, AY>(x, y, i + 10));
        acc.a2 = _mm_add_pd(_mm_add_pd(acc.a2, prod<AX, AY>(x, y, i + 4)), prod<AX, AY>(x, y, i + 12));
        acc.a3 = _mm_add_pd(_mm_add_pd(acc.a3, prod<AX, AY>(x, y, i + 6)), prod<AX, AY>(x, y, i + 14));
    }
    if (n - i >= 8) {
        dot_step8<AX, AY>(x, y, i, acc);
        i += 8;
    }
    return i;
}

// Steps of 8 while at least 8 elements remain.
template <bool AX, bool AY>
inline i64 dot_by8(i64 n, const double* x, const double* y, i64 i, Acc4& acc)
{
    for (; n - i >= 8; i += 8) dot_step8<AX, AY>(x, y, i, acc);
    return i;
}

// Pairs into A0, then an odd last element into lane 0 of A0.
template <bool AX, bool AY>
inline void dot_pairs_tail(i64 n, const double* x, const double* y, i64 i, Acc4& acc)
{
    for (; n - i >= 2; i += 2) acc.a0 = _mm_add_pd(acc.a0, prod<AX, AY>(x, y, i));
    if (i < n) acc.add_lane0(x[i] * y[i]);
}

// Strided walk from the first logical elements: element 2k into lane 0 and
// element 2k+1 into lane 1 of A0, an odd last element into lane 0.
inline void dot_strided(i64 n, const double* x, i64 incx, const double* y, i64 incy, Acc4& acc)
{
    const double* px = first_element(x, n, incx);
    const double* py = first_element(y, n, incy);
    i64 i = 0;
    for (; n - i >= 2; i += 2, px += 2 * incx, py += 2 * incy)
        acc.a0 = _mm_add_pd(acc.a0, _mm_mul_pd(gather(px, px + incx), gather(py, py + incy)));
    if (i < n) acc.add_lane0(*px * *py);
}

}  // namespace orv::sse2
