// The baseline complex dot product, shared by the baseline kernel and the
// alignment-independent one. For each element pair the products
// P = (xr*yr, xi*yi) and Q = (xr*yi, xi*yr) are summed; conj(x).y and x.y
// differ only in how the lanes combine at the end.
#pragma once

#include "level1/kernels/sse2.h"

namespace orv::sse2 {

struct ZdotAcc {
    __m128d p = _mm_setzero_pd();
    __m128d q = _mm_setzero_pd();

    void add(const dcomplex* x, const dcomplex* y)
    {
        const __m128d xv = _mm_loadu_pd(parts(x));
        const __m128d yv = _mm_loadu_pd(parts(y));
        p = _mm_add_pd(p, _mm_mul_pd(xv, yv));
        q = _mm_add_pd(q, _mm_mul_pd(xv, swap_lanes(yv)));
    }
};

// Writes to *result, for the vectors x and y walked by the increments:
// contiguous (both increments 1 or both -1, forwards from the bases) with
// even elements into one accumulator pair and odd ones into the other and an
// odd last element into the first; otherwise one pair from the first
// logical elements. The result is (P0 + P1, Q0 - Q1) for conj(x).y and
// (P0 - P1, Q0 + Q1) for x.y, one addition with Q1's or P1's sign flipped.
template <bool Conjugate>
inline void zdot_sum(dcomplex* result, i64 n, const dcomplex* x, i64 incx, const dcomplex* y, i64 incy,
                     bool contiguous)
{
    ZdotAcc a, b;
    if (contiguous) {
        i64 i = 0;
        for (; n - i >= 2; i += 2) {
            a.add(x + i, y + i);
            b.add(x + i + 1, y + i + 1);
        }
        if (i < n) a.add(x + i, y + i);
    } else {
        const dcomplex* px = first_element(x, n, incx);
        const dcomplex* py = first_element(y, n, incy);
        for (i64 i = 0; i < n; ++i, px += incx, py += incy) a.add(px, py);
    }
    const __m128d p = _mm_add_pd(a.p, b.p);
    const __m128d q = _mm_add_pd(a.q, b.q);
    const __m128d flip = Conjugate ? _mm_set_pd(-0.0, 0.0) : _mm_set_pd(0.0, -0.0);
    const __m128d sum = _mm_add_pd(_mm_unpacklo_pd(p, q), _mm_xor_pd(_mm_unpackhi_pd(p, q), flip));
    _mm_storeu_pd(parts(result), sum);
}

}  // namespace orv::sse2
