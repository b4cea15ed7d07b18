// Build tables of the matrix-vector engine.

#include "level2/dispatch.h"

namespace orv {
namespace {

// A build's table: its own general matrix-vector and rank-1 update kernels,
// and for the routines that have no build of their own yet the plain loops,
// whose results depend neither on the processor nor on the placement of the
// arrays.
constexpr Level2Kernels table(GemvKernel<double> dgemv, GemvKernel<dcomplex> zgemv, GerKernel<double> dger,
                              GerKernel<dcomplex> zgeru, GerKernel<dcomplex> zgerc)
{
    return {
        .dgemv = dgemv,
        .zgemv = zgemv,
        .dgbmv = plain::dgbmv,
        .zgbmv = plain::zgbmv,
        .dger = dger,
        .zgeru = zgeru,
        .zgerc = zgerc,
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

constexpr Level2Kernels kDef = table(def::dgemv, def::zgemv, def::dger, def::zgeru, def::zgerc);
constexpr Level2Kernels kCnr = table(cnr::dgemv, cnr::zgemv, def::dger, def::zgeru, def::zgerc);
constexpr Level2Kernels kMc = table(mc::dgemv, mc::zgemv, mc::dger, mc::zgeru, mc::zgerc);
constexpr Level2Kernels kMc3 = table(mc3::dgemv, mc3::zgemv, mc3::dger, mc3::zgeru, mc3::zgerc);
constexpr Level2Kernels kAvx = table(avx::dgemv, avx::zgemv, avx::dger, avx::zgeru, avx::zgerc);
constexpr Level2Kernels kAvx2 = table(avx2::dgemv, avx2::zgemv, avx2::dger, avx2::zgeru, avx2::zgerc);
constexpr Level2Kernels kAvx512Qix =
    table(avx512_qix::dgemv, avx512_qix::zgemv, avx512_qix::dger, avx512_qix::zgeru, avx512_qix::zgerc);
constexpr Level2Kernels kAvx512 = table(avx512::dgemv, avx512::zgemv, avx512::dger, avx512::zgeru, avx512::zgerc);

}  // namespace

Level2Kernels Family<Level2Kernels>::slots{};

const Level2Kernels* const Family<Level2Kernels>::builds[kBuildCount] = {
    /* avx512 */ &kAvx512, /* avx512_qix */ &kAvx512Qix, /* avx2 */ &kAvx2, /* avx */ &kAvx,
    /* mc3 */ &kMc3,       /* cnr */ &kCnr,               /* mc */ &kMc,     /* def */ &kDef,
};

}  // namespace orv
