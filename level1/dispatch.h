// The dispatched families of the vector engine: one slot per routine.
#pragma once

#include "level1/kernels.h"
#include "service/dispatch.h"

namespace orv {

struct Level1Kernels {
    decltype(&def::ddot) ddot;
    decltype(&def::daxpy) daxpy;
    decltype(&def::dscal) dscal;
    decltype(&def::dcopy) dcopy;
    decltype(&def::dswap) dswap;
    decltype(&def::zdotc) zdotc;
    decltype(&def::zdotu) zdotu;
    decltype(&def::zaxpy) zaxpy;
    decltype(&def::zscal) zscal;
    decltype(&def::zdscal) zdscal;
    decltype(&def::zcopy) zcopy;
    decltype(&def::zswap) zswap;
    decltype(&def::dnrm2) dnrm2;
    decltype(&def::dznrm2) dznrm2;
    decltype(&def::dasum) dasum;
    decltype(&def::dzasum) dzasum;
    decltype(&def::idamax) idamax;
    decltype(&def::izamax) izamax;
    decltype(&def::dcabs1) dcabs1;
    decltype(&def::drot) drot;
    decltype(&def::drotm) drotm;
    decltype(&def::zdrot) zdrot;
    decltype(&def::drotg) drotg;
    decltype(&def::drotmg) drotmg;
    decltype(&def::zrotg) zrotg;
};

template <>
struct Family<Level1Kernels> {
    static Level1Kernels slots;
    static const Level1Kernels* const builds[kBuildCount];
};

}  // namespace orv
