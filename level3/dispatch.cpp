// Build tables of the matrix-matrix engine.

#include "level3/dispatch.h"

namespace orv {
namespace {

constexpr Level3Kernels kCnr = {
    .dgemm = cnr::dgemm,
    .zgemm = cnr::zgemm,
    .dsymm = cnr::dsymm,
    .zsymm = cnr::zsymm,
    .zhemm = cnr::zhemm,
    .dsyrk = cnr::dsyrk,
    .zsyrk = cnr::zsyrk,
    .zherk = cnr::zherk,
    .dsyr2k = cnr::dsyr2k,
    .zsyr2k = cnr::zsyr2k,
    .zher2k = cnr::zher2k,
    .dtrmm = cnr::dtrmm,
    .ztrmm = cnr::ztrmm,
    .dtrsm = cnr::dtrsm,
    .ztrsm = cnr::ztrsm,
};

}  // namespace

Level3Kernels Family<Level3Kernels>::slots{};

// Every code path runs the compatible members until it has its own.
const Level3Kernels* const Family<Level3Kernels>::builds[kBuildCount] = {
    /* avx512 */ &kCnr, /* avx512_qix */ &kCnr, /* avx2 */ &kCnr, /* avx */ &kCnr,
    /* mc3 */ &kCnr,    /* cnr */ &kCnr,        /* mc */ &kCnr,   /* def */ &kCnr,
};

}  // namespace orv
