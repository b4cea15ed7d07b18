// The reproducible complex dot products: the baseline's contiguous order
// (even elements into one accumulator pair, odd ones into the other) for
// every placement of x and y, with unaligned loads. The baseline takes that
// order only when both arrays are 16-byte aligned, and the strided order
// otherwise; here the result depends only on the values and increments, and
// equals the baseline's for aligned arrays.
#include "level1/kernels.h"
#include "level1/kernels/zdot_sse2.h"

namespace orv::cnr {

using namespace orv::sse2;

namespace {

template <bool Conjugate>
void zdot(dcomplex* result, const i64* n_, const dcomplex* x, const i64* incx_, const dcomplex* y,
          const i64* incy_)
{
    result->re = 0.0;
    result->im = 0.0;
    const i64 n = *n_, incx = *incx_, incy = *incy_;
    if (n < 1) return;
    zdot_sum<Conjugate>(result, n, x, incx, y, incy, unit_pair(incx, incy));
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

}  // namespace orv::cnr
