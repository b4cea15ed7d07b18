// The dispatched families of the matrix-vector engine: one slot per routine.
#pragma once

#include "level2/kernels.h"
#include "level2/level2.h"
#include "service/dispatch.h"

namespace orv {

struct Level2Kernels {
    GemvKernel<double> dgemv;
    GemvKernel<dcomplex> zgemv;
    decltype(&plain::dgbmv) dgbmv;
    decltype(&plain::zgbmv) zgbmv;
    GerKernel<double> dger;
    GerKernel<dcomplex> zgeru;
    GerKernel<dcomplex> zgerc;
    decltype(&plain::dsymv) dsymv;
    decltype(&plain::zhemv) zhemv;
    decltype(&plain::dsbmv) dsbmv;
    decltype(&plain::zhbmv) zhbmv;
    decltype(&plain::dspmv) dspmv;
    decltype(&plain::zhpmv) zhpmv;
    decltype(&plain::dsyr) dsyr;
    decltype(&plain::zher) zher;
    decltype(&plain::dspr) dspr;
    decltype(&plain::zhpr) zhpr;
    decltype(&plain::dsyr2) dsyr2;
    decltype(&plain::zher2) zher2;
    decltype(&plain::dspr2) dspr2;
    decltype(&plain::zhpr2) zhpr2;
    decltype(&plain::dtrmv) dtrmv;
    decltype(&plain::ztrmv) ztrmv;
    decltype(&plain::dtbmv) dtbmv;
    decltype(&plain::ztbmv) ztbmv;
    decltype(&plain::dtpmv) dtpmv;
    decltype(&plain::ztpmv) ztpmv;
    decltype(&plain::dtrsv) dtrsv;
    decltype(&plain::ztrsv) ztrsv;
    decltype(&plain::dtbsv) dtbsv;
    decltype(&plain::ztbsv) ztbsv;
    decltype(&plain::dtpsv) dtpsv;
    decltype(&plain::ztpsv) ztpsv;
};

template <>
struct Family<Level2Kernels> {
    static Level2Kernels slots;
    static const Level2Kernels* const builds[kBuildCount];
};

}  // namespace orv
