// The reproducible real dot product: the baseline order without alignment
// peeling. The contiguous path always starts its 16-element steps at the
// first element, with unaligned loads, so that the result does not depend on
// where x and y lie in memory.
#include "level1/kernels.h"
#include "level1/kernels/ddot_sse2.h"

namespace orv::cnr {

using namespace orv::sse2;

double ddot(const i64* n_, const double* x, const i64* incx_, const double* y, const i64* incy_)
{
    const i64 n = *n_, incx = *incx_, incy = *incy_;
    if (n < 1) return 0.0;
    Acc4 acc;
    if (unit_pair(incx, incy)) {
        const i64 i = dot_by16<false, false>(n, x, y, 0, acc);
        dot_pairs_tail<false, false>(n, x, y, i, acc);
    } else {
        dot_strided(n, x, incx, y, incy, acc);
    }
    return acc.total();
}

}  // namespace orv::cnr
