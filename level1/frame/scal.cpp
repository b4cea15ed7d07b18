// Threaded scaling: each thread scales its own chunk. There is no shortcut
// for alpha = 0 or 1: scaling always multiplies every element.

#include "level1/dispatch.h"
#include "level1/frame/drivers.h"
#include "level1/frame/frame.h"

using orv::dcomplex;
using orv::dispatch;
using orv::i64;
using orv::Level1Kernels;
using orv::frame::Chunk;

namespace {

constexpr orv::frame::Split kDscal{8192, 4096};
constexpr orv::frame::Split kComplex{4096, 2048};

}  // namespace

void orv_blas_dscal(const i64* n, const double* alpha, double* x, const i64* incx)
{
    if (*n < 1) return;
    orv::frame::update(kDscal, *n, *incx != 0, [=](const Chunk& c) {
        dispatch<&Level1Kernels::dscal>(&c.length, alpha, c.base(x, *incx), incx);
    });
}

void orv_blas_zscal(const i64* n, const dcomplex* alpha, dcomplex* x, const i64* incx)
{
    if (*n < 1) return;
    orv::frame::update(kComplex, *n, *incx != 0, [=](const Chunk& c) {
        dispatch<&Level1Kernels::zscal>(&c.length, alpha, c.base(x, *incx), incx);
    });
}

void orv_blas_zdscal(const i64* n, const double* alpha, dcomplex* x, const i64* incx)
{
    if (*n < 1) return;
    orv::frame::update(kComplex, *n, *incx != 0, [=](const Chunk& c) {
        dispatch<&Level1Kernels::zdscal>(&c.length, alpha, c.base(x, *incx), incx);
    });
}
