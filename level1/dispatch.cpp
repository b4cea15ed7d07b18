// Build tables of the vector engine: one per build, each pointing to its own
// path's kernels.

#include "level1/dispatch.h"

// The members of a build whose kernels all lie in namespace `ns`.
#define ORV_LEVEL1_TABLE(ns)                                                                                      \
    Level1Kernels                                                                                                 \
    {                                                                                                             \
        .ddot = ns::ddot, .daxpy = ns::daxpy, .dscal = ns::dscal, .dcopy = ns::dcopy, .dswap = ns::dswap,         \
        .zdotc = ns::zdotc, .zdotu = ns::zdotu, .zaxpy = ns::zaxpy, .zscal = ns::zscal, .zdscal = ns::zdscal,     \
        .zcopy = ns::zcopy, .zswap = ns::zswap, .dnrm2 = ns::dnrm2, .dznrm2 = ns::dznrm2, .dasum = ns::dasum,     \
        .dzasum = ns::dzasum, .idamax = ns::idamax, .izamax = ns::izamax, .dcabs1 = ns::dcabs1, .drot = ns::drot, \
        .drotm = ns::drotm, .zdrot = ns::zdrot, .drotg = ns::drotg, .drotmg = ns::drotmg, .zrotg = ns::zrotg,     \
    }

namespace orv {
namespace {

constexpr Level1Kernels kDef = ORV_LEVEL1_TABLE(def);
constexpr Level1Kernels kMc = ORV_LEVEL1_TABLE(mc);
constexpr Level1Kernels kMc3 = ORV_LEVEL1_TABLE(mc3);
constexpr Level1Kernels kAvx = ORV_LEVEL1_TABLE(avx);
constexpr Level1Kernels kAvx2 = ORV_LEVEL1_TABLE(avx2);
constexpr Level1Kernels kAvx512Qix = ORV_LEVEL1_TABLE(avx512_qix);
constexpr Level1Kernels kAvx512 = ORV_LEVEL1_TABLE(avx512);

// The reproducible build: the baseline kernels, except where the baseline's
// order depends on the placement of the arrays.
constexpr Level1Kernels kCnr = [] {
    Level1Kernels table = kDef;
    table.ddot = cnr::ddot;
    table.dasum = cnr::dasum;
    table.zdotc = cnr::zdotc;
    table.zdotu = cnr::zdotu;
    return table;
}();

}  // namespace

Level1Kernels Family<Level1Kernels>::slots{};

const Level1Kernels* const Family<Level1Kernels>::builds[kBuildCount] = {
    /* avx512 */ &kAvx512, /* avx512_qix */ &kAvx512Qix, /* avx2 */ &kAvx2, /* avx */ &kAvx,
    /* mc3 */ &kMc3,       /* cnr */ &kCnr,               /* mc */ &kMc,     /* def */ &kDef,
};

}  // namespace orv
