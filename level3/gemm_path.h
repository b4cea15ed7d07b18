// What distinguishes the matrix products of one code path from another:
// which small-matrix roads it tries before the blocked road, its blocks, the
// register tiles of its inner kernels and the kernel of its roads that read A
// and B in place. The driver, the packing and the roads themselves are shared
// baseline code; only this description differs.
//
// Every road of a path gives an element of C the same bits: C scaled by beta
// first, then for each of the path's k-blocks one sum over the block's k in
// order, starting from +0, of alpha * a(i, l) (rounded) times b(l, j), fused
// into the sum where the path's tiles fuse and rounded before the add where
// they do not, and that sum added to C.
#pragma once

#include "level3/gemm_blocking.h"
#include "level3/gemm_records.h"
#include "level3/kernels/gemm_small.h"

namespace orv {

enum class GemmRouting {
    small_and_tiny,  // the direct small kernel by shape, then the tiny kernel
    tiny_only,       // only the tiny kernel
    blocked_only,    // straight to the blocked road
    combined,        // the baseline routine: the unpacked kernel for small products
};

struct GemmPath {
    const char* name;
    GemmRouting routing;
    i64 small_q_limit;   // small_and_tiny: q = mn/(m+n) up to this takes the direct kernel ...
    i64 small_m_limit;   // ... when m is at most this
    bool thin_road;      // thin shapes go to the unpacked kernel instead of the blocked driver
    const BlockRule* blocks;
    TileChooser choose_tile;
    const GemmTile* tile;      // default tile
    const GemmTile* alt_tile;  // tile mode 16
    const GemmTile* ztile;     // the complex tile
    GemmSmallKernel unpacked;  // one k-block read in place: the direct, tiny and thin roads and the fall-back
};

// The descriptions of the builds (the compatible build shares the baseline's).
extern const GemmPath kGemmPathAvx512;
extern const GemmPath kGemmPathAvx512Qix;
extern const GemmPath kGemmPathAvx2;
extern const GemmPath kGemmPathAvx;
extern const GemmPath kGemmPathMc3;
extern const GemmPath kGemmPathMc;
extern const GemmPath kGemmPathDef;

// The record of a path's real product: its default tile, confirmed by its
// chooser; and the tile that record names.
void init_path_params(const GemmPath& path, KernelParams* params);
const GemmTile* path_tile(const GemmPath& path, const KernelParams& params);
// The record of a path's complex product: its complex tile.
void init_complex_params(const GemmPath& path, KernelParams* params);

}  // namespace orv
