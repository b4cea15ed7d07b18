// Build tables of the matrix-vector engine.

#include "level2/dispatch.h"

namespace orv {
namespace {

constexpr Level2Kernels kPlain = {
    .dgemv = plain::dgemv,
    .zgemv = plain::zgemv,
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

}  // namespace

Level2Kernels Family<Level2Kernels>::slots{};

// Every code path runs the plain members, whose results depend neither on
// the processor nor on the placement of the arrays, until it has its own.
const Level2Kernels* const Family<Level2Kernels>::builds[kBuildCount] = {
    /* avx512 */ &kPlain, /* avx512_qix */ &kPlain, /* avx2 */ &kPlain, /* avx */ &kPlain,
    /* mc3 */ &kPlain,    /* cnr */ &kPlain,        /* mc */ &kPlain,   /* def */ &kPlain,
};

}  // namespace orv
