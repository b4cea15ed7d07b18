// The dispatched families of the matrix-vector engine: one slot per routine.
#pragma once

#include "level2/level2.h"
#include "service/dispatch.h"

namespace orv {

struct Level2Kernels {
    decltype(&cnr::dgemv) dgemv;
    decltype(&cnr::zgemv) zgemv;
    decltype(&cnr::dgbmv) dgbmv;
    decltype(&cnr::zgbmv) zgbmv;
    decltype(&cnr::dger) dger;
    decltype(&cnr::zgeru) zgeru;
    decltype(&cnr::zgerc) zgerc;
    decltype(&cnr::dsymv) dsymv;
    decltype(&cnr::zhemv) zhemv;
    decltype(&cnr::dsbmv) dsbmv;
    decltype(&cnr::zhbmv) zhbmv;
    decltype(&cnr::dspmv) dspmv;
    decltype(&cnr::zhpmv) zhpmv;
    decltype(&cnr::dsyr) dsyr;
    decltype(&cnr::zher) zher;
    decltype(&cnr::dspr) dspr;
    decltype(&cnr::zhpr) zhpr;
    decltype(&cnr::dsyr2) dsyr2;
    decltype(&cnr::zher2) zher2;
    decltype(&cnr::dspr2) dspr2;
    decltype(&cnr::zhpr2) zhpr2;
    decltype(&cnr::dtrmv) dtrmv;
    decltype(&cnr::ztrmv) ztrmv;
    decltype(&cnr::dtbmv) dtbmv;
    decltype(&cnr::ztbmv) ztbmv;
    decltype(&cnr::dtpmv) dtpmv;
    decltype(&cnr::ztpmv) ztpmv;
    decltype(&cnr::dtrsv) dtrsv;
    decltype(&cnr::ztrsv) ztrsv;
    decltype(&cnr::dtbsv) dtbsv;
    decltype(&cnr::ztbsv) ztbsv;
    decltype(&cnr::dtpsv) dtpsv;
    decltype(&cnr::ztpsv) ztpsv;
};

template <>
struct Family<Level2Kernels> {
    static Level2Kernels slots;
    static const Level2Kernels* const builds[kBuildCount];
};

}  // namespace orv
