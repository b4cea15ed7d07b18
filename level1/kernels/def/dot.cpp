// Baseline dot products. Their accumulation orders are part of the results'
// contract: the same inputs at the same addresses give the same bits.
#include "level1/kernels.h"
#include "level1/kernels/ddot_sse2.h"

namespace orv::def {

using namespace orv::sse2;

double ddot(const i64* n_, const double* x, const i64* incx_, const double* y, const i64* incy_)
{
    const i64 n = *n_, incx = *incx_, incy = *incy_;
    if (n < 1) return 0.0;
    Acc4 acc;
    // Doubles that are not even 8-byte aligned cannot be brought to 16-byte
    // alignment by peeling; like the other contiguous kernels, such arrays
    // take the strided walk, whose order does not depend on the address.
    if (!unit_pair(incx, incy) || !aligned8(x) || !aligned8(y)) {
        dot_strided(n, x, incx, y, incy, acc);
        return acc.total();
    }
    i64 i = 0;
    if (same_alignment16(x, y)) {
        if (!aligned16(x)) {
            acc.add_lane0(x[0] * y[0]);
            i = 1;
        }
        i = dot_by16<true, true>(n, x, y, i, acc);
        dot_pairs_tail<true, true>(n, x, y, i, acc);
    } else {
        if (!aligned16(y)) {
            acc.add_lane0(x[0] * y[0]);
            i = 1;
        }
        i = dot_by8<false, true>(n, x, y, i, acc);
        dot_pairs_tail<false, true>(n, x, y, i, acc);
    }
    return acc.total();
}

namespace {

// For each element pair the products P = (xr*yr, xi*yi) and Q = (xr*yi, xi*yr)
// are summed; the two dot products differ only in how the lanes combine.
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

// Returns (P0 + P1, Q0 - Q1) for conj(x).y, (P0 - P1, Q0 + Q1) for x.y: the
// lanes are paired so that one addition, after a sign flip, yields both parts.
template <bool Conjugate>
void zdot(dcomplex* result, const i64* n_, const dcomplex* x, const i64* incx_, const dcomplex* y,
          const i64* incy_)
{
    result->re = 0.0;
    result->im = 0.0;
    const i64 n = *n_, incx = *incx_, incy = *incy_;
    if (n < 1) return;
    ZdotAcc a, b;
    if (unit_pair(incx, incy) && aligned16(x) && aligned16(y)) {
        // Even elements into a, odd ones into b; 8, 4 and 2 per step, and an
        // odd last element into a.
        i64 i = 0;
        for (; n - i >= 8; i += 8)
            for (int k = 0; k < 8; k += 2) {
                a.add(x + i + k, y + i + k);
                b.add(x + i + k + 1, y + i + k + 1);
            }
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

}  // namespace

void zdotc(dcomplex* result, const i64* n, const dcomplex* x, const i64* incx, const dcomplex* y, const i64* incy)
{
    zdot<true>(result, n, x, incx, y, incy);
}

void zdotu(dcomplex* result, const i64* n, const dcomplex* x, const i64* incx, const dcomplex* y, const i64* incy)
{
    zdot<false>(result, n, x, incx, y, incy);
}

}  // namespace orv::def
