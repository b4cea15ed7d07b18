// Threaded dot products: chunk sums added in thread order.

#include "level1/dispatch.h"
#include "level1/frame/combine.h"
#include "level1/frame/drivers.h"
#include "level1/frame/frame.h"

using orv::dcomplex;
using orv::dispatch;
using orv::i64;
using orv::Level1Kernels;
using orv::frame::Chunk;

namespace {

constexpr orv::frame::Split kDdot{4096, 2048};
constexpr orv::frame::Split kZdot{2048, 1024};

}  // namespace

double orv_blas_ddot(const i64* n, const double* x, const i64* incx, const double* y, const i64* incy)
{
    if (*n < 1) return 0.0;
    return orv::frame::reduce<double>(
        "orv_blas_ddot", kDdot, *n, *incx != 0 && *incy != 0,
        [=](const Chunk& c) {
            return dispatch<&Level1Kernels::ddot>(&c.length, c.base(x, *incx), incx, c.base(y, *incy), incy);
        },
        orv::frame::sum_in_order<double>);
}

void orv_blas_zdotc(dcomplex* result, const i64* n, const dcomplex* x, const i64* incx, const dcomplex* y,
                    const i64* incy)
{
    *result = {0.0, 0.0};
    if (*n < 1) return;
    *result = orv::frame::reduce<dcomplex>(
        "orv_blas_zdotc", kZdot, *n, *incx != 0 && *incy != 0,
        [=](const Chunk& c) {
            dcomplex part;
            dispatch<&Level1Kernels::zdotc>(&part, &c.length, c.base(x, *incx), incx, c.base(y, *incy), incy);
            return part;
        },
        orv::frame::sum_in_order<dcomplex>);
}

void orv_blas_zdotu(dcomplex* result, const i64* n, const dcomplex* x, const i64* incx, const dcomplex* y,
                    const i64* incy)
{
    *result = {0.0, 0.0};
    if (*n < 1) return;
    *result = orv::frame::reduce<dcomplex>(
        "orv_blas_zdotu", kZdot, *n, *incx != 0 && *incy != 0,
        [=](const Chunk& c) {
            dcomplex part;
            dispatch<&Level1Kernels::zdotu>(&part, &c.length, c.base(x, *incx), incx, c.base(y, *incy), incy);
            return part;
        },
        orv::frame::sum_in_order<dcomplex>);
}
