// Build tables of the matrix-matrix engine.

#include "level3/dispatch.h"

#include "level3/gemm_route.h"
#include "level3/trsm_driver.h"

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

// The plain members, with the real product and solve that a build has of its own.
constexpr Level3Kernels with_own(decltype(&cnr::dgemm) dgemm, decltype(&cnr::dtrsm) dtrsm)
{
    Level3Kernels table = kPlain;
    table.dgemm = dgemm;
    table.dtrsm = dtrsm;
    return table;
}

template <const GemmPath& Path, const TrsmKernels& Kernels>
constexpr Level3Kernels own_members = with_own(dgemm_member<Path>, dtrsm_member<Path, Kernels>);

constexpr Level3Kernels kAvx512 = own_members<kGemmPathAvx512, avx512::kTrsmKernels>;
constexpr Level3Kernels kAvx512Qix = own_members<kGemmPathAvx512Qix, avx512_qix::kTrsmKernels>;
constexpr Level3Kernels kAvx2 = own_members<kGemmPathAvx2, avx2::kTrsmKernels>;
constexpr Level3Kernels kAvx = own_members<kGemmPathAvx, avx::kTrsmKernels>;
constexpr Level3Kernels kMc3 = own_members<kGemmPathMc3, mc3::kTrsmKernels>;
constexpr Level3Kernels kMc = own_members<kGemmPathMc, mc::kTrsmKernels>;
constexpr Level3Kernels kDef = own_members<kGemmPathDef, def::kTrsmKernels>;
// The baseline's product and solve already give the same bits on every
// processor and wherever the arrays lie, so the reproducible build shares them.
constexpr Level3Kernels kCnr = kDef;

}  // namespace

Level3Kernels Family<Level3Kernels>::slots{};

const Level3Kernels* const Family<Level3Kernels>::builds[kBuildCount] = {
    /* avx512 */ &kAvx512, /* avx512_qix */ &kAvx512Qix, /* avx2 */ &kAvx2, /* avx */ &kAvx,
    /* mc3 */ &kMc3,       /* cnr */ &kCnr,              /* mc */ &kMc,     /* def */ &kDef,
};

}  // namespace orv
