// Threaded index of the first largest magnitude: each chunk's first largest
// element, then the earliest chunk holding the largest of those.

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

constexpr orv::frame::Split kIdamax{8192, 4096};
constexpr orv::frame::Split kIzamax{4096, 2048};

}  // namespace

// A non-positive step has no answer, and one element needs no look at x.
// Positive steps only: any chunk split is allowed.
i64 orv_blas_idamax(const i64* n, const double* x, const i64* incx)
{
    if (*n < 1 || *incx < 1) return 0;
    if (*n == 1) return 1;
    return orv::frame::reduce<i64>(
        "orv_blas_idamax", kIdamax, *n, true,
        [=](const Chunk& c) { return c.start + dispatch<&Level1Kernels::idamax>(&c.length, c.base(x, *incx), incx); },
        [=](const i64* index, int count) { return orv::frame::first_largest(index, count, x, *incx); });
}

i64 orv_blas_izamax(const i64* n, const dcomplex* x, const i64* incx)
{
    if (*n < 1 || *incx < 1) return 0;
    if (*n == 1) return 1;
    return orv::frame::reduce<i64>(
        "orv_blas_izamax", kIzamax, *n, true,
        [=](const Chunk& c) { return c.start + dispatch<&Level1Kernels::izamax>(&c.length, c.base(x, *incx), incx); },
        [=](const i64* index, int count) { return orv::frame::first_largest(index, count, x, *incx); });
}
