// The dispatched families of the matrix-matrix engine: one slot per routine.
#pragma once

#include "level3/level3.h"
#include "service/dispatch.h"

namespace orv {

struct Level3Kernels {
    decltype(&cnr::dgemm) dgemm;
    decltype(&cnr::zgemm) zgemm;
    decltype(&cnr::dsymm) dsymm;
    decltype(&cnr::zsymm) zsymm;
    decltype(&cnr::zhemm) zhemm;
    decltype(&cnr::dsyrk) dsyrk;
    decltype(&cnr::zsyrk) zsyrk;
    decltype(&cnr::zherk) zherk;
    decltype(&cnr::dsyr2k) dsyr2k;
    decltype(&cnr::zsyr2k) zsyr2k;
    decltype(&cnr::zher2k) zher2k;
    decltype(&cnr::dtrmm) dtrmm;
    decltype(&cnr::ztrmm) ztrmm;
    decltype(&cnr::dtrsm) dtrsm;
    decltype(&cnr::ztrsm) ztrsm;
};

template <>
struct Family<Level3Kernels> {
    static Level3Kernels slots;
    static const Level3Kernels* const builds[kBuildCount];
};

}  // namespace orv
