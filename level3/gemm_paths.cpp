// The real matrix product of each code path: its description.
//
// The wider paths route small shapes to the unpacked kernels by their own
// limits and run the blocked driver with their own register tiles; the
// 128-bit paths go almost straight to the blocked driver, whose 4 x 4 tile
// already makes the most of their registers. The paths whose tiles fuse the
// multiply-add read A and B in place with a fused kernel of their own; the
// others share the baseline's.
#include "level3/gemm_blocking.h"
#include "level3/gemm_path.h"
#include "level3/gemm_route.h"
#include "level3/gemm_unpacked.h"

namespace orv {
namespace {

int choose_avx512(KernelParams* p) { return settle_tile(p, avx512::kGemmTile, avx512::kGemmTileAlt); }
int choose_avx512_qix(KernelParams* p) { return settle_tile(p, avx512_qix::kGemmTile, avx512_qix::kGemmTileAlt); }
int choose_avx2(KernelParams* p) { return settle_tile(p, avx2::kGemmTile, avx2::kGemmTileAlt); }
int choose_avx(KernelParams* p) { return settle_tile(p, avx::kGemmTile, avx::kGemmTileAlt); }
int choose_mc3(KernelParams* p) { return settle_tile(p, mc3::kGemmTile, mc3::kGemmTileAlt); }
int choose_mc(KernelParams* p) { return settle_tile(p, mc::kGemmTile, mc::kGemmTileAlt); }
int choose_def(KernelParams* p) { return settle_tile(p, def::kGemmTile, def::kGemmTileAlt); }

}  // namespace

void init_path_params(const GemmPath& path, KernelParams* params)
{
    init_kernel_params(params, *path.tile, path.choose_tile, sizeof(double));
    params->choose_tile(params);
}

const GemmTile* path_tile(const GemmPath& path, const KernelParams& params)
{
    return params.tile_mode == kTileModeAlternative ? path.alt_tile : path.tile;
}

void init_complex_params(const GemmPath& path, KernelParams* params)
{
    init_kernel_params(params, *path.ztile, nullptr, sizeof(dcomplex));
}

// name, routing, direct-kernel limits (q, m), thin road, blocks, chooser, tiles (default, alternative,
// complex), unpacked kernel
const GemmPath kGemmPathAvx512 = {"avx512", GemmRouting::tiny_only, 0, 0, true, &kStandardBlocks,
                                  choose_avx512, &avx512::kGemmTile, &avx512::kGemmTileAlt, &avx512::kZgemmTile,
                                  avx512::gemm_small};
const GemmPath kGemmPathAvx512Qix = {"avx512_qix", GemmRouting::blocked_only, 0, 0, true, &kStandardBlocks,
                                     choose_avx512_qix, &avx512_qix::kGemmTile, &avx512_qix::kGemmTileAlt, &avx512_qix::kZgemmTile,
                                     avx512_qix::gemm_small};
const GemmPath kGemmPathAvx2 = {"avx2", GemmRouting::small_and_tiny, 10, 100, true, &kStandardBlocks,
                                choose_avx2, &avx2::kGemmTile, &avx2::kGemmTileAlt, &avx2::kZgemmTile,
                                avx2::gemm_small};
const GemmPath kGemmPathAvx = {"avx", GemmRouting::small_and_tiny, 9, 70, true, &kStandardBlocks,
                               choose_avx, &avx::kGemmTile, &avx::kGemmTileAlt, &avx::kZgemmTile,
                               gemm_small_unfused};
const GemmPath kGemmPathMc3 = {"mc3", GemmRouting::tiny_only, 0, 0, false, &kStandardBlocks,
                               choose_mc3, &mc3::kGemmTile, &mc3::kGemmTileAlt, &mc3::kZgemmTile,
                               gemm_small_unfused};
const GemmPath kGemmPathMc = {"mc", GemmRouting::tiny_only, 0, 0, false, &kStandardBlocks,
                              choose_mc, &mc::kGemmTile, &mc::kGemmTileAlt, &mc::kZgemmTile,
                              gemm_small_unfused};
const GemmPath kGemmPathDef = {"def", GemmRouting::combined, 0, 0, false, &kCombinedBlocks,
                               choose_def, &def::kGemmTile, &def::kGemmTileAlt, &def::kZgemmTile,
                               gemm_small_unfused};

}  // namespace orv
