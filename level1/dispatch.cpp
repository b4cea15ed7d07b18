// Build tables of the vector engine.

#include "level1/dispatch.h"

namespace orv {
namespace {

constexpr Level1Kernels kDef = {
    .ddot = def::ddot,
    .daxpy = def::daxpy,
    .dscal = def::dscal,
    .dcopy = def::dcopy,
    .dswap = def::dswap,
    .zdotc = def::zdotc,
    .zdotu = def::zdotu,
    .zaxpy = def::zaxpy,
    .zscal = def::zscal,
    .zdscal = def::zdscal,
    .zcopy = def::zcopy,
    .zswap = def::zswap,
    .dnrm2 = def::dnrm2,
    .dznrm2 = def::dznrm2,
    .dasum = def::dasum,
    .dzasum = def::dzasum,
    .idamax = def::idamax,
    .izamax = def::izamax,
    .dcabs1 = def::dcabs1,
    .drot = def::drot,
    .drotm = def::drotm,
    .zdrot = def::zdrot,
    .drotg = def::drotg,
    .drotmg = def::drotmg,
    .zrotg = def::zrotg,
};

// The reproducible build: the baseline kernels, except where the baseline's
// order depends on the placement of the arrays.
constexpr Level1Kernels kCnr = [] {
    Level1Kernels table = kDef;
    table.ddot = cnr::ddot;
    return table;
}();

}  // namespace

Level1Kernels Family<Level1Kernels>::slots{};

// Until a path has kernels of its own, it runs the baseline's.
const Level1Kernels* const Family<Level1Kernels>::builds[kBuildCount] = {
    /* avx512 */ &kDef, /* avx512_qix */ &kDef, /* avx2 */ &kDef, /* avx */ &kDef,
    /* mc3 */ &kDef,    /* cnr */ &kCnr,        /* mc */ &kDef,   /* def */ &kDef,
};

}  // namespace orv
