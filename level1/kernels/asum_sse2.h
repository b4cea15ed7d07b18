// Contiguous steps of the baseline sum of magnitudes, shared by the baseline
// kernel and the alignment-independent one: from element i on, 16 elements
// per step in two chains (even pairs into A0, odd pairs into A1), then 8
// (A2 and A3 start here, from the third and fourth pairs crosswise), 4, a
// pair and a last single element.
#pragma once

#include <cmath>

#include "level1/kernels/sse2.h"

namespace orv::sse2 {

template <bool Aligned>
inline double asum_contiguous(i64 n, const double* x, i64 i, Acc4& acc)
{
    auto m = [x](i64 j) { return abs(load<Aligned>(x + j)); };
    for (; n - i >= 16; i += 16) {
        acc.a0 = _mm_add_pd(_mm_add_pd(_mm_add_pd(_mm_add_pd(acc.a0, m(i)), m(i + 4)), m(i + 8)), m(i + 12));
        acc.a1 = _mm_add_pd(_mm_add_pd(_mm_add_pd(_mm_add_pd(acc.a1, m(i + 2)), m(i + 6)), m(i + 10)), m(i + 14));
    }
    if (n - i >= 8) {
        acc.a0 = _mm_add_pd(acc.a0, m(i));
        acc.a1 = _mm_add_pd(acc.a1, m(i + 2));
        acc.a2 = m(i + 6);
        acc.a3 = m(i + 4);
        i += 8;
    }
    if (n - i >= 4) {
        acc.a0 = _mm_add_pd(acc.a0, m(i));
        acc.a1 = _mm_add_pd(acc.a1, m(i + 2));
        i += 4;
    }
    if (n - i >= 2) {
        acc.a0 = _mm_add_pd(acc.a0, m(i));
        i += 2;
    }
    if (i < n) acc.add_lane0(std::fabs(x[i]));
    return acc.total();
}

}  // namespace orv::sse2
