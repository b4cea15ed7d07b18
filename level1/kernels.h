// Single-thread kernels of the vector operations.
//
// Every kernel takes all of its arguments by address, with 64-bit integers,
// so that the export layer, the threaded drivers and the dispatch slots can
// hand arguments through unchanged. A negative increment walks a vector from
// its far end (first logical element at base + (1 - n) * inc).
//
// orv::def is the baseline (SSE2) code path. Its reductions have fixed
// accumulation orders that depend on the increments and, on the contiguous
// paths, on the 16-byte alignment of the arrays. orv::cnr holds the variants
// whose results must not depend on where the arrays lie in memory.
#pragma once

#include "service/types.h"

namespace orv::def {

// Dot products, scaling, axpy, copy and swap.
double ddot(const i64* n, const double* x, const i64* incx, const double* y, const i64* incy);
void daxpy(const i64* n, const double* alpha, const double* x, const i64* incx, double* y, const i64* incy);
void dscal(const i64* n, const double* alpha, double* x, const i64* incx);
void dcopy(const i64* n, const double* x, const i64* incx, double* y, const i64* incy);
void dswap(const i64* n, double* x, const i64* incx, double* y, const i64* incy);

// The complex dot products write their result (first set to 0 + 0i) to *result.
void zdotc(dcomplex* result, const i64* n, const dcomplex* x, const i64* incx, const dcomplex* y, const i64* incy);
void zdotu(dcomplex* result, const i64* n, const dcomplex* x, const i64* incx, const dcomplex* y, const i64* incy);
void zaxpy(const i64* n, const dcomplex* alpha, const dcomplex* x, const i64* incx, dcomplex* y, const i64* incy);
void zscal(const i64* n, const dcomplex* alpha, dcomplex* x, const i64* incx);
void zdscal(const i64* n, const double* alpha, dcomplex* x, const i64* incx);
void zcopy(const i64* n, const dcomplex* x, const i64* incx, dcomplex* y, const i64* incy);
void zswap(const i64* n, dcomplex* x, const i64* incx, dcomplex* y, const i64* incy);

// Norms, sums of magnitudes and the index of the largest magnitude (1-based,
// 0 for an empty vector or a non-positive increment).
double dnrm2(const i64* n, const double* x, const i64* incx);
double dznrm2(const i64* n, const dcomplex* x, const i64* incx);
double dasum(const i64* n, const double* x, const i64* incx);
double dzasum(const i64* n, const dcomplex* x, const i64* incx);
i64 idamax(const i64* n, const double* x, const i64* incx);
i64 izamax(const i64* n, const dcomplex* x, const i64* incx);
double dcabs1(const dcomplex* z);

// Plane rotations: application and construction.
void drot(const i64* n, double* x, const i64* incx, double* y, const i64* incy, const double* c, const double* s);
void drotm(const i64* n, double* x, const i64* incx, double* y, const i64* incy, const double* param);
void zdrot(const i64* n, dcomplex* x, const i64* incx, dcomplex* y, const i64* incy, const double* c,
           const double* s);
void drotg(double* a, double* b, double* c, double* s);
void drotmg(double* d1, double* d2, double* x1, const double* y1, double* param);
void zrotg(dcomplex* ca, const dcomplex* cb, double* c, dcomplex* s);

}  // namespace orv::def

namespace orv::cnr {

// The baseline orders without alignment peeling: the same bits for any
// placement of the arrays. The other kernels of the reproducible build are
// the baseline's, whose results do not depend on placement.
double ddot(const i64* n, const double* x, const i64* incx, const double* y, const i64* incy);
double dasum(const i64* n, const double* x, const i64* incx);
void zdotc(dcomplex* result, const i64* n, const dcomplex* x, const i64* incx, const dcomplex* y, const i64* incy);
void zdotu(dcomplex* result, const i64* n, const dcomplex* x, const i64* incx, const dcomplex* y, const i64* incy);

}  // namespace orv::cnr

// The kernels of the other code paths: the same signatures in each path's
// namespace, each built with its path's instruction set (folders under
// level1/kernels/ named after the paths). Their orders are described in
// level1/kernels/wide/.
namespace orv::mc {
#include "level1/kernels/signatures.inc"
}  // namespace orv::mc
namespace orv::mc3 {
#include "level1/kernels/signatures.inc"
}  // namespace orv::mc3
namespace orv::avx {
#include "level1/kernels/signatures.inc"
}  // namespace orv::avx
namespace orv::avx2 {
#include "level1/kernels/signatures.inc"
}  // namespace orv::avx2
namespace orv::avx512_qix {
#include "level1/kernels/signatures.inc"
}  // namespace orv::avx512_qix
namespace orv::avx512 {
#include "level1/kernels/signatures.inc"
}  // namespace orv::avx512
