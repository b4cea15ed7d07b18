// Build tables of the matrix-matrix engine.

#include "level3/dispatch.h"

#include "level3/gemm_route.h"
#include "level3/structured.h"
#include "level3/trsm_driver.h"

namespace orv {
namespace {

// The members of a build: the products and solves on its path's frame, the
// solves with the path's solve kernels.
template <const GemmPath& Path, const TrsmKernels& Solve>
constexpr Level3Kernels on_path()
{
    return {
        .dgemm = dgemm_member<Path>,
        .zgemm = zgemm_member<Path>,
        .dsymm = symm_member<Path, double, false>,
        .zsymm = symm_member<Path, dcomplex, false>,
        .zhemm = symm_member<Path, dcomplex, true>,
        .dsyrk = syrk_member<Path, double, false, double>,
        .zsyrk = syrk_member<Path, dcomplex, false, dcomplex>,
        .zherk = syrk_member<Path, dcomplex, true, double>,
        .dsyr2k = syr2k_member<Path, double, false, double>,
        .zsyr2k = syr2k_member<Path, dcomplex, false, dcomplex>,
        .zher2k = syr2k_member<Path, dcomplex, true, double>,
        .dtrmm = trmm_member<Path, double>,
        .ztrmm = trmm_member<Path, dcomplex>,
        .dtrsm = dtrsm_member<Path, Solve>,
        .ztrsm = ztrsm_member<Path, Solve>,
    };
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
