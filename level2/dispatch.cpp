// Build tables of the matrix-vector engine: one per build, each pointing to
// its own path's kernels. The families that have no build of their own yet
// keep the plain loops, whose results depend neither on the processor nor on
// the placement of the arrays.

#include "level2/dispatch.h"

// The members of a build whose kernels all lie in namespace `ns`.
#define ORV_LEVEL2_TABLE(ns)                                                                                  \
    Level2Kernels                                                                                             \
    {                                                                                                         \
        .dgemv = ns::dgemv, .zgemv = ns::zgemv, .dger = ns::dger, .zgeru = ns::zgeru, .zgerc = ns::zgerc,     \
                                                                                                              \
        .dsymv = ns::dsymv, .dsymv_strip = ns::dsymv_strip, .zhemv = ns::zhemv,                               \
                                                                                                              \
        .dtrmv = ns::dtrmv, .ztrmv = ns::ztrmv, .dtrmv_strip = ns::dtrmv_strip,                               \
        .ztrmv_strip = ns::ztrmv_strip, .dtrsv = ns::dtrsv, .ztrsv = ns::ztrsv,                               \
                                                                                                              \
        .dsyr = ns::dsyr, .dsyr2 = ns::dsyr2, .dsyr_strip = ns::dsyr_strip, .dsyr2_strip = ns::dsyr2_strip,   \
        .zher = ns::zher, .zher2 = ns::zher2, .dspr = ns::dspr, .dspr2 = ns::dspr2, .zhpr = ns::zhpr,         \
        .zhpr2 = ns::zhpr2,                                                                                   \
                                                                                                              \
        .dgbmv = ns::dgbmv, .zgbmv = ns::zgbmv, .dsbmv = ns::dsbmv, .zhbmv = ns::zhbmv,                       \
        .dspmv = ns::dspmv, .zhpmv = ns::zhpmv, .dtbmv = ns::dtbmv, .ztbmv = ns::ztbmv,                       \
        .dtbsv = ns::dtbsv, .ztbsv = ns::ztbsv, .dtpmv = ns::dtpmv, .ztpmv = ns::ztpmv,                       \
        .dtpsv = ns::dtpsv, .ztpsv = ns::ztpsv,                                                               \
    }

namespace orv {
namespace {

constexpr Level2Kernels kDef = ORV_LEVEL2_TABLE(def);
constexpr Level2Kernels kMc = ORV_LEVEL2_TABLE(mc);
constexpr Level2Kernels kMc3 = ORV_LEVEL2_TABLE(mc3);
constexpr Level2Kernels kAvx = ORV_LEVEL2_TABLE(avx);
constexpr Level2Kernels kAvx2 = ORV_LEVEL2_TABLE(avx2);
constexpr Level2Kernels kAvx512Qix = ORV_LEVEL2_TABLE(avx512_qix);
constexpr Level2Kernels kAvx512 = ORV_LEVEL2_TABLE(avx512);

// The reproducible build: the baseline kernels, except where the baseline's
// order depends on the placement of the arrays (the general products, and the
// triangular ones that are built over them).
constexpr Level2Kernels kCnr = [] {
    Level2Kernels table = kDef;
    table.dgemv = cnr::dgemv;
    table.zgemv = cnr::zgemv;
    table.dtrmv = cnr::dtrmv;
    table.ztrmv = cnr::ztrmv;
    table.dtrmv_strip = cnr::dtrmv_strip;
    table.ztrmv_strip = cnr::ztrmv_strip;
    table.dtrsv = cnr::dtrsv;
    table.ztrsv = cnr::ztrsv;
    return table;
}();

}  // namespace

Level2Kernels Family<Level2Kernels>::slots{};

const Level2Kernels* const Family<Level2Kernels>::builds[kBuildCount] = {
    /* avx512 */ &kAvx512, /* avx512_qix */ &kAvx512Qix, /* avx2 */ &kAvx2, /* avx */ &kAvx,
    /* mc3 */ &kMc3,       /* cnr */ &kCnr,               /* mc */ &kMc,     /* def */ &kDef,
};

}  // namespace orv
