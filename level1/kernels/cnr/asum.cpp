// The reproducible sum of magnitudes: the baseline order without alignment
// peeling. The contiguous path always starts its 16-element steps at the
// first element, with unaligned loads, so that the result does not depend on
// where x lies in memory (it equals the baseline's for a 16-byte aligned x).
#include <cmath>

#include "level1/kernels.h"
#include "level1/kernels/asum_sse2.h"

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
    return asum_contiguous<false>(n, x, 0, acc);
}

}  // namespace orv::cnr
