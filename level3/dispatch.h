// The dispatched families of the matrix-matrix engine: one slot per routine.
#pragma once

#include "level3/level3.h"
#include "service/dispatch.h"

namespace orv {

struct Level3Kernels {
    decltype(&plain::dgemm) dgemm;
    decltype(&plain::zgemm) zgemm;
    decltype(&plain::dsymm) dsymm;
    decltype(&plain::zsymm) zsymm;
    decltype(&plain::zhemm) zhemm;
    decltype(&plain::dsyrk) dsyrk;
    decltype(&plain::zsyrk) zsyrk;
    decltype(&plain::zherk) zherk;
    decltype(&plain::dsyr2k) dsyr2k;
    decltype(&plain::zsyr2k) zsyr2k;
    decltype(&plain::zher2k) zher2k;
    decltype(&plain::dtrmm) dtrmm;
    decltype(&plain::ztrmm) ztrmm;
    decltype(&plain::dtrsm) dtrsm;
    decltype(&plain::ztrsm) ztrsm;
};

template <>
struct Family<Level3Kernels> {
    static Level3Kernels slots;
    static const Level3Kernels* const builds[kBuildCount];
};

}  // namespace orv
