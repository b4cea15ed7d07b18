// The reproducible sum of magnitudes: the baseline order without alignment
// peeling. The contiguous path always starts its 16-element steps at the
// first element, with unaligned loads, so that the result does not depend on
// where x lies in memory (it equals the baseline's for a 16-byte aligned x).
#include <cmath>

#include "level1/kernels.h"
#include "level1/kernels/sse2.h"

namespace orv::cnr {

using namespace orv::sse2;

double dasum(const i64* n_, const double* x, const i64* incx_)
{
    const i64 n = *n_, incx = *incx_;
    if (n < 1) return 0.0;
    Acc4 acc;
    if (!unit(incx)) {
        const double* p = first_element(x, n, incx);
        for (i64 i = 0; i < n; ++i, p += incx) acc.add_lane0(std::fabs(*p));
        return acc.total();
    }
    auto m = [x](i64 i) { return abs(load<false>(x + i)); };
    i64 i = 0;
    // Even pairs of each 16 elements into A0, odd pairs into A1.
    for (; n - i >= 16; i += 16) {
        acc.a0 = _mm_add_pd(_mm_add_pd(_mm_add_pd(_mm_add_pd(acc.a0, m(i)), m(i + 4)), m(i + 8)), m(i + 12));
        acc.a1 = _mm_add_pd(_mm_add_pd(_mm_add_pd(_mm_add_pd(acc.a1, m(i + 2)), m(i + 6)), m(i + 10)), m(i + 14));
    }
    // A2 and A3 start here, from the third and fourth pairs crosswise.
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

}  // namespace orv::cnr
