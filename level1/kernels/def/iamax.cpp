// Baseline index of the first element of largest magnitude.
//
// The scalar rule: an element replaces the running maximum unless the
// running maximum compares greater than or equal to it. Ties keep the earlier
// index, and since an unordered comparison also replaces, a NaN becomes the
// running maximum and is replaced by the very next element: the search
// restarts after the last NaN.
//
// The contiguous path keeps two-lane running maxima and is only valid for
// NaN-free input, so it watches for NaNs and, when it meets one, answers with
// the scalar rule over the whole vector: the index never depends on the path
// taken.
#include <cmath>

#include "level1/kernels.h"
#include "level1/kernels/sse2.h"

namespace orv::def {

using namespace orv::sse2;

namespace {

struct RealMagnitude {
    static double one(const double* p) { return std::fabs(*p); }
    // Magnitudes of p[0] and p[1]; p is 16-byte aligned.
    static __m128d two(const double* p) { return abs(load<true>(p)); }
};

struct ComplexMagnitude {
    static double one(const dcomplex* p) { return std::fabs(p->re) + std::fabs(p->im); }
    static __m128d two(const dcomplex* p)
    {
        const __m128d a = _mm_loadu_pd(parts(p));
        const __m128d b = _mm_loadu_pd(parts(p + 1));
        return _mm_add_pd(abs(_mm_unpacklo_pd(a, b)), abs(_mm_unpackhi_pd(a, b)));
    }
};

struct RunningMax {
    double value;
    i64 index;  // 0-based

    void offer(double a, i64 i)
    {
        if (!(value >= a)) {
            value = a;
            index = i;
        }
    }
};

template <class M, class T>
i64 scalar_rule(i64 n, const T* x, i64 incx)
{
    RunningMax best{M::one(x), 0};
    for (i64 i = 1; i < n; ++i) best.offer(M::one(x + i * incx), i);
    return best.index + 1;
}

inline __m128d select(__m128d mask, __m128d a, __m128d b) { return _mm_or_pd(_mm_and_pd(mask, a), _mm_andnot_pd(mask, b)); }
inline __m128i select(__m128i mask, __m128i a, __m128i b)
{
    return _mm_or_si128(_mm_and_si128(mask, a), _mm_andnot_si128(mask, b));
}

// incx = 1, n >= 2; elements before `head` are taken by the scalar rule.
template <class M, class T>
i64 contiguous(i64 n, const T* x, i64 head)
{
    RunningMax best{M::one(x), 0};
    for (i64 i = 1; i < head; ++i) best.offer(M::one(x + i), i);
    if (std::isnan(best.value)) return scalar_rule<M>(n, x, 1);

    // Lane k takes the elements i + k; both lanes start from the head's
    // maximum, whose index is below every index they see.
    __m128d lane_max = _mm_set1_pd(best.value);
    __m128i lane_idx = _mm_set1_epi64x(best.index);
    __m128i idx = _mm_set_epi64x(head + 1, head);
    __m128d nan = _mm_setzero_pd();
    i64 i = head;
    for (; n - i >= 2; i += 2) {
        const __m128d m = M::two(x + i);
        const __m128d greater = _mm_cmpgt_pd(m, lane_max);
        nan = _mm_or_pd(nan, _mm_cmpunord_pd(m, m));
        lane_max = select(greater, m, lane_max);
        lane_idx = select(_mm_castpd_si128(greater), idx, lane_idx);
        idx = _mm_add_epi64(idx, _mm_set1_epi64x(2));
    }
    if (_mm_movemask_pd(nan) != 0) return scalar_rule<M>(n, x, 1);

    alignas(16) i64 lane_index[2];
    _mm_store_si128(reinterpret_cast<__m128i*>(lane_index), lane_idx);
    const double m0 = lane0(lane_max), m1 = lane1(lane_max);
    if (m1 > m0 || (m1 == m0 && lane_index[1] < lane_index[0]))
        best = {m1, lane_index[1]};
    else
        best = {m0, lane_index[0]};
    for (; i < n; ++i) best.offer(M::one(x + i), i);
    return best.index + 1;
}

}  // namespace

i64 idamax(const i64* n_, const double* x, const i64* incx_)
{
    const i64 n = *n_, incx = *incx_;
    if (n < 1 || incx < 1) return 0;
    if (n == 1) return 1;
    if (incx != 1 || !aligned8(x)) return scalar_rule<RealMagnitude>(n, x, incx);
    // Element 0 starts the search; element 1 is taken alone when that is
    // what brings the pair loads to 16-byte alignment.
    return contiguous<RealMagnitude>(n, x, aligned16(x + 1) ? 1 : 2);
}

i64 izamax(const i64* n_, const dcomplex* x, const i64* incx_)
{
    const i64 n = *n_, incx = *incx_;
    if (n < 1 || incx < 1) return 0;
    if (n == 1) return 1;
    if (incx != 1) return scalar_rule<ComplexMagnitude>(n, x, incx);
    return contiguous<ComplexMagnitude>(n, x, 1);
}

}  // namespace orv::def
