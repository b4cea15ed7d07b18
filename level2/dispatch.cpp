// Build tables of the matrix-vector engine.

#include "level2/dispatch.h"

namespace orv {
namespace {

constexpr Level2Kernels kCnr = {
    .dgemv = cnr::dgemv,
    .zgemv = cnr::zgemv,
    .dgbmv = cnr::dgbmv,
    .zgbmv = cnr::zgbmv,
    .dger = cnr::dger,
    .zgeru = cnr::zgeru,
    .zgerc = cnr::zgerc,
    .dsymv = cnr::dsymv,
    .zhemv = cnr::zhemv,
    .dsbmv = cnr::dsbmv,
    .zhbmv = cnr::zhbmv,
    .dspmv = cnr::dspmv,
    .zhpmv = cnr::zhpmv,
    .dsyr = cnr::dsyr,
    .zher = cnr::zher,
    .dspr = cnr::dspr,
    .zhpr = cnr::zhpr,
    .dsyr2 = cnr::dsyr2,
    .zher2 = cnr::zher2,
    .dspr2 = cnr::dspr2,
    .zhpr2 = cnr::zhpr2,
    .dtrmv = cnr::dtrmv,
    .ztrmv = cnr::ztrmv,
    .dtbmv = cnr::dtbmv,
    .ztbmv = cnr::ztbmv,
    .dtpmv = cnr::dtpmv,
    .ztpmv = cnr::ztpmv,
    .dtrsv = cnr::dtrsv,
    .ztrsv = cnr::ztrsv,
    .dtbsv = cnr::dtbsv,
    .ztbsv = cnr::ztbsv,
    .dtpsv = cnr::dtpsv,
    .ztpsv = cnr::ztpsv,
};

}  // namespace

Level2Kernels Family<Level2Kernels>::slots{};

// Every code path runs the compatible members until it has its own.
const Level2Kernels* const Family<Level2Kernels>::builds[kBuildCount] = {
    /* avx512 */ &kCnr, /* avx512_qix */ &kCnr, /* avx2 */ &kCnr, /* avx */ &kCnr,
    /* mc3 */ &kCnr,    /* cnr */ &kCnr,        /* mc */ &kCnr,   /* def */ &kCnr,
};

}  // namespace orv
