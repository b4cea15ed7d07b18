// Threaded axpy, copy and swap: each thread updates its own chunk of y (and
// of x for swap).

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
constexpr orv::frame::Split kComplex{2048, 1024};

}  // namespace

// A zero alpha leaves y as it is (even its NaNs), so no thread is started;
// a NaN alpha is not zero and reaches every element.
void orv_blas_daxpy(const i64* n, const double* alpha, const double* x, const i64* incx, double* y, const i64* incy)
{
    if (*n < 1 || *alpha == 0.0) return;
    orv::frame::update(kReal, *n, *incx != 0 && *incy != 0, [=](const Chunk& c) {
        dispatch<&Level1Kernels::daxpy>(&c.length, alpha, c.base(x, *incx), incx, c.base(y, *incy), incy);
    });
}

void orv_blas_zaxpy(const i64* n, const dcomplex* alpha, const dcomplex* x, const i64* incx, dcomplex* y,
                    const i64* incy)
{
    if (*n < 1 || (alpha->re == 0.0 && alpha->im == 0.0)) return;
    orv::frame::update(kComplex, *n, *incx != 0 && *incy != 0, [=](const Chunk& c) {
        dispatch<&Level1Kernels::zaxpy>(&c.length, alpha, c.base(x, *incx), incx, c.base(y, *incy), incy);
    });
}

void orv_blas_dcopy(const i64* n, const double* x, const i64* incx, double* y, const i64* incy)
{
    if (*n < 1) return;
    orv::frame::update(kReal, *n, *incx != 0 && *incy != 0, [=](const Chunk& c) {
        dispatch<&Level1Kernels::dcopy>(&c.length, c.base(x, *incx), incx, c.base(y, *incy), incy);
    });
}

void orv_blas_zcopy(const i64* n, const dcomplex* x, const i64* incx, dcomplex* y, const i64* incy)
{
    if (*n < 1) return;
    orv::frame::update(kComplex, *n, *incx != 0 && *incy != 0, [=](const Chunk& c) {
        dispatch<&Level1Kernels::zcopy>(&c.length, c.base(x, *incx), incx, c.base(y, *incy), incy);
    });
}

void orv_blas_dswap(const i64* n, double* x, const i64* incx, double* y, const i64* incy)
{
    if (*n < 1) return;
    orv::frame::update(kReal, *n, *incx != 0 && *incy != 0, [=](const Chunk& c) {
        dispatch<&Level1Kernels::dswap>(&c.length, c.base(x, *incx), incx, c.base(y, *incy), incy);
    });
}

void orv_blas_zswap(const i64* n, dcomplex* x, const i64* incx, dcomplex* y, const i64* incy)
{
    if (*n < 1) return;
    orv::frame::update(kComplex, *n, *incx != 0 && *incy != 0, [=](const Chunk& c) {
        dispatch<&Level1Kernels::zswap>(&c.length, c.base(x, *incx), incx, c.base(y, *incy), incy);
    });
}
