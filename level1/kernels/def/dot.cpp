// Baseline dot products. Their accumulation orders are part of the results'
// contract: the same inputs at the same addresses give the same bits.
#include "level1/kernels.h"
#include "level1/kernels/ddot_sse2.h"
#include "level1/kernels/zdot_sse2.h"

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

template <bool Conjugate>
void zdot(dcomplex* result, const i64* n_, const dcomplex* x, const i64* incx_, const dcomplex* y,
          const i64* incy_)
{
    result->re = 0.0;
    result->im = 0.0;
    const i64 n = *n_, incx = *incx_, incy = *incy_;
    if (n < 1) return;
    // The contiguous order only when both arrays are 16-byte aligned.
    zdot_sum<Conjugate>(result, n, x, incx, y, incy, unit_pair(incx, incy) && aligned16(x) && aligned16(y));
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
