// Threaded sums of magnitudes and Euclidean norms. The sums add the chunks'
// sums in thread order; the norms take the norm of the chunks' norms.

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

constexpr orv::frame::Split kReal{8192, 4096};
constexpr orv::frame::Split kComplex{4096, 2048};

}  // namespace

double orv_blas_dasum(const i64* n, const double* x, const i64* incx)
{
    if (*n < 1) return 0.0;
    return orv::frame::reduce<double>(
        "orv_blas_dasum", kReal, *n, *incx != 0,
        [=](const Chunk& c) { return dispatch<&Level1Kernels::dasum>(&c.length, c.base(x, *incx), incx); },
        orv::frame::sum_in_order<double>);
}

double orv_blas_dzasum(const i64* n, const dcomplex* x, const i64* incx)
{
    if (*n < 1) return 0.0;
    return orv::frame::reduce<double>(
        "orv_blas_dzasum", kComplex, *n, *incx != 0,
        [=](const Chunk& c) { return dispatch<&Level1Kernels::dzasum>(&c.length, c.base(x, *incx), incx); },
        orv::frame::sum_in_order<double>);
}

double orv_blas_dnrm2(const i64* n, const double* x, const i64* incx)
{
    if (*n < 1) return 0.0;
    return orv::frame::reduce<double>(
        "orv_blas_dnrm2", kReal, *n, *incx != 0,
        [=](const Chunk& c) { return dispatch<&Level1Kernels::dnrm2>(&c.length, c.base(x, *incx), incx); },
        orv::frame::norm_of_norms);
}

double orv_blas_dznrm2(const i64* n, const dcomplex* x, const i64* incx)
{
    if (*n < 1) return 0.0;
    return orv::frame::reduce<dcomplex>(
        "orv_blas_dznrm2", kComplex, *n, *incx != 0,
        [=](const Chunk& c) { return dispatch<&Level1Kernels::dznrm2>(&c.length, c.base(x, *incx), incx); },
        orv::frame::norm_of_complex_norms);
}
