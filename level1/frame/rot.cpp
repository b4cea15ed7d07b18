// Threaded application of plane rotations: each thread rotates its own
// chunk of the pair (x, y).

#include "level1/dispatch.h"
#include "level1/frame/drivers.h"
#include "level1/frame/frame.h"

using orv::dcomplex;
using orv::dispatch;
using orv::i64;
using orv::Level1Kernels;
using orv::frame::Chunk;

namespace {

constexpr orv::frame::Split kReal{4096, 2048};
constexpr orv::frame::Split kZdrot{2048, 1024};

}  // namespace

void orv_blas_drot(const i64* n, double* x, const i64* incx, double* y, const i64* incy, const double* c,
                   const double* s)
{
    if (*n < 1) return;
    orv::frame::update(kReal, *n, *incx != 0 && *incy != 0, [=](const Chunk& ch) {
        dispatch<&Level1Kernels::drot>(&ch.length, ch.base(x, *incx), incx, ch.base(y, *incy), incy, c, s);
    });
}

void orv_blas_drotm(const i64* n, double* x, const i64* incx, double* y, const i64* incy, const double* param)
{
    if (*n < 1) return;
    orv::frame::update(kReal, *n, *incx != 0 && *incy != 0, [=](const Chunk& ch) {
        dispatch<&Level1Kernels::drotm>(&ch.length, ch.base(x, *incx), incx, ch.base(y, *incy), incy, param);
    });
}

void orv_blas_zdrot(const i64* n, dcomplex* x, const i64* incx, dcomplex* y, const i64* incy, const double* c,
                    const double* s)
{
    if (*n < 1) return;
    orv::frame::update(kZdrot, *n, *incx != 0 && *incy != 0, [=](const Chunk& ch) {
        dispatch<&Level1Kernels::zdrot>(&ch.length, ch.base(x, *incx), incx, ch.base(y, *incy), incy, c, s);
    });
}
