// Build tables of the matrix-vector engine.

#include "level2/dispatch.h"

namespace orv {
namespace {

// A build's table: its own general matrix-vector kernels, and for the
// routines that have no build of their own yet the plain loops, whose results
// depend neither on the processor nor on the placement of the arrays.
constexpr Level2Kernels table(GemvKernel<double> dgemv, GemvKernel<dcomplex> zgemv)
{
    return {
        .dgemv = dgemv,
        .zgemv = zgemv,
        .dgbmv = plain::dgbmv,
        .zgbmv = plain::zgbmv,
        .dger = plain::dger,
        .zgeru = plain::zgeru,
        .zgerc = plain::zgerc,
        .dsymv = plain::dsymv,
        .zhemv = plain::zhemv,
        .dsbmv = plain::dsbmv,
        .zhbmv = plain::zhbmv,
        .dspmv = plain::dspmv,
        .zhpmv = plain::zhpmv,
        .dsyr = plain::dsyr,
        .zher = plain::zher,
        .dspr = plain::dspr,
        .zhpr = plain::zhpr,
        .dsyr2 = plain::dsyr2,
        .zher2 = plain::zher2,
        .dspr2 = plain::dspr2,
        .zhpr2 = plain::zhpr2,
        .dtrmv = plain::dtrmv,
        .ztrmv = plain::ztrmv,
        .dtbmv = plain::dtbmv,
        .ztbmv = plain::ztbmv,
        .dtpmv = plain::dtpmv,
        .ztpmv = plain::ztpmv,
        .dtrsv = plain::dtrsv,
        .ztrsv = plain::ztrsv,
        .dtbsv = plain::dtbsv,
        .ztbsv = plain::ztbsv,
        .dtpsv = plain::dtpsv,
        .ztpsv = plain::ztpsv,
    };
}

constexpr Level2Kernels kDef = table(def::dgemv, def::zgemv);
constexpr Level2Kernels kCnr = table(cnr::dgemv, cnr::zgemv);
constexpr Level2Kernels kMc = table(mc::dgemv, mc::zgemv);
constexpr Level2Kernels kMc3 = table(mc3::dgemv, mc3::zgemv);
constexpr Level2Kernels kAvx = table(avx::dgemv, avx::zgemv);
constexpr Level2Kernels kAvx2 = table(avx2::dgemv, avx2::zgemv);
constexpr Level2Kernels kAvx512Qix = table(avx512_qix::dgemv, avx512_qix::zgemv);
constexpr Level2Kernels kAvx512 = table(avx512::dgemv, avx512::zgemv);

}  // namespace

Level2Kernels Family<Level2Kernels>::slots{};

const Level2Kernels* const Family<Level2Kernels>::builds[kBuildCount] = {
    /* avx512 */ &kAvx512, /* avx512_qix */ &kAvx512Qix, /* avx2 */ &kAvx2, /* avx */ &kAvx,
    /* mc3 */ &kMc3,       /* cnr */ &kCnr,               /* mc */ &kMc,     /* def */ &kDef,
};

}  // namespace orv
