// The dispatched families of the matrix-vector engine: one slot per routine.
#pragma once

#include "level2/kernels.h"
#include "level2/level2.h"
#include "service/dispatch.h"

namespace orv {

struct Level2Kernels {
    // General products and rank-1 updates.
    GemvKernel<double> dgemv;
    GemvKernel<dcomplex> zgemv;
    GerKernel<double> dger;
    GerKernel<dcomplex> zgeru;
    GerKernel<dcomplex> zgerc;
    // Symmetric and Hermitian products, full storage.
    SymvKernel<double> dsymv;
    SymvStripKernel dsymv_strip;
    HemvKernel zhemv;
    // Triangular products and solves, full storage.
    TriangularKernel<double> dtrmv;
    TriangularKernel<dcomplex> ztrmv;
    TrmvStripKernel<double> dtrmv_strip;
    TrmvStripKernel<dcomplex> ztrmv_strip;
    TriangularKernel<double> dtrsv;
    TriangularKernel<dcomplex> ztrsv;
    // Symmetric and Hermitian rank-1 and rank-2 updates, full and packed.
    SyrKernel<double> dsyr;
    Syr2Kernel<double> dsyr2;
    SyrStripKernel<double> dsyr_strip;
    Syr2StripKernel<double> dsyr2_strip;
    decltype(&def::zher) zher;
    decltype(&def::zher2) zher2;
    decltype(&def::dspr) dspr;
    decltype(&def::dspr2) dspr2;
    decltype(&def::zhpr) zhpr;
    decltype(&def::zhpr2) zhpr2;
    // Band and packed products and solves.
    decltype(&plain::dgbmv) dgbmv;
    decltype(&plain::zgbmv) zgbmv;
    decltype(&plain::dsbmv) dsbmv;
    decltype(&plain::zhbmv) zhbmv;
    decltype(&plain::dspmv) dspmv;
    decltype(&plain::zhpmv) zhpmv;
    decltype(&plain::dtbmv) dtbmv;
    decltype(&plain::ztbmv) ztbmv;
    decltype(&plain::dtbsv) dtbsv;
    decltype(&plain::ztbsv) ztbsv;
    decltype(&plain::dtpmv) dtpmv;
    decltype(&plain::ztpmv) ztpmv;
    decltype(&plain::dtpsv) dtpsv;
    decltype(&plain::ztpsv) ztpsv;
};

template <>
struct Family<Level2Kernels> {
    static Level2Kernels slots;
    static const Level2Kernels* const builds[kBuildCount];
};

}  // namespace orv
