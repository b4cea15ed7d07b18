// Build tables of the matrix-matrix engine.

#include "level3/dispatch.h"

#include "level3/gemm_route.h"
#include "level3/structured.h"
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

// The plain members, with the products and solves that a build has of its
// own: the real solve with the path's solve kernels, the complex one on the
// frame.
template <const GemmPath& Path, const TrsmKernels& Solve>
constexpr Level3Kernels on_path()
{
    Level3Kernels table = kPlain;
    table.dgemm = dgemm_member<Path>;
    table.zgemm = zgemm_member<Path>;
    table.dsymm = symm_member<Path, double, false>;
    table.zsymm = symm_member<Path, dcomplex, false>;
    table.zhemm = symm_member<Path, dcomplex, true>;
    table.dsyrk = syrk_member<Path, double, false, double>;
    table.zsyrk = syrk_member<Path, dcomplex, false, dcomplex>;
    table.zherk = syrk_member<Path, dcomplex, true, double>;
    table.dsyr2k = syr2k_member<Path, double, false, double>;
    table.zsyr2k = syr2k_member<Path, dcomplex, false, dcomplex>;
    table.zher2k = syr2k_member<Path, dcomplex, true, double>;
    table.dtrmm = trmm_member<Path, double>;
    table.ztrmm = trmm_member<Path, dcomplex>;
    table.dtrsm = dtrsm_member<Path, Solve>;
    table.ztrsm = trsm_member<Path, dcomplex>;
    return table;
}

constexpr Level3Kernels kAvx512 = on_path<kGemmPathAvx512, avx512::kTrsmKernels>();
constexpr Level3Kernels kAvx512Qix = on_path<kGemmPathAvx512Qix, avx512_qix::kTrsmKernels>();
constexpr Level3Kernels kAvx2 = on_path<kGemmPathAvx2, avx2::kTrsmKernels>();
constexpr Level3Kernels kAvx = on_path<kGemmPathAvx, avx::kTrsmKernels>();
constexpr Level3Kernels kMc3 = on_path<kGemmPathMc3, mc3::kTrsmKernels>();
constexpr Level3Kernels kMc = on_path<kGemmPathMc, mc::kTrsmKernels>();
constexpr Level3Kernels kDef = on_path<kGemmPathDef, def::kTrsmKernels>();
// The baseline's products already give the same bits on every processor and
// wherever the arrays lie, so the reproducible build shares them.
constexpr Level3Kernels kCnr = kDef;

}  // namespace

Level3Kernels Family<Level3Kernels>::slots{};

const Level3Kernels* const Family<Level3Kernels>::builds[kBuildCount] = {
    /* avx512 */ &kAvx512, /* avx512_qix */ &kAvx512Qix, /* avx2 */ &kAvx2, /* avx */ &kAvx,
    /* mc3 */ &kMc3,       /* cnr */ &kCnr,              /* mc */ &kMc,     /* def */ &kDef,
};

}  // namespace orv
