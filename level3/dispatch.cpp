// Build tables of the matrix-matrix engine.

#include "level3/dispatch.h"

#include "level3/gemm_route.h"

namespace orv {
namespace {

// Every build runs these members until it has its own.
constexpr Level3Kernels kPlain = {
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

// The plain members, with the real product that a build has of its own.
constexpr Level3Kernels with_dgemm(decltype(&cnr::dgemm) dgemm)
{
    Level3Kernels table = kPlain;
    table.dgemm = dgemm;
    return table;
}

constexpr Level3Kernels kAvx512 = with_dgemm(dgemm_member<kGemmPathAvx512>);
constexpr Level3Kernels kAvx512Qix = with_dgemm(dgemm_member<kGemmPathAvx512Qix>);
constexpr Level3Kernels kAvx2 = with_dgemm(dgemm_member<kGemmPathAvx2>);
constexpr Level3Kernels kAvx = with_dgemm(dgemm_member<kGemmPathAvx>);
constexpr Level3Kernels kMc3 = with_dgemm(dgemm_member<kGemmPathMc3>);
constexpr Level3Kernels kMc = with_dgemm(dgemm_member<kGemmPathMc>);
constexpr Level3Kernels kDef = with_dgemm(dgemm_member<kGemmPathDef>);
// The baseline's product already gives the same bits on every processor and
// wherever the arrays lie, so the reproducible build shares it.
constexpr Level3Kernels kCnr = with_dgemm(dgemm_member<kGemmPathDef>);

}  // namespace

Level3Kernels Family<Level3Kernels>::slots{};

const Level3Kernels* const Family<Level3Kernels>::builds[kBuildCount] = {
    /* avx512 */ &kAvx512, /* avx512_qix */ &kAvx512Qix, /* avx2 */ &kAvx2, /* avx */ &kAvx,
    /* mc3 */ &kMc3,       /* cnr */ &kCnr,              /* mc */ &kMc,     /* def */ &kDef,
};

}  // namespace orv
