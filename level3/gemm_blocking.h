// The register tile and the cache blocks of a blocked product, and its work
// buffer.
#pragma once

#include "level3/gemm_records.h"

namespace orv {

// Every tile takes k one step at a time, so packed panels may have any depth.
inline constexpr i64 kTileDepthUnroll = 1;

// A fresh record for `tile` (ku 1) of elements of elem_bytes, with the path's
// chooser; loop order and tile mode are left for the chooser.
void init_kernel_params(KernelParams* p, const GemmTile& tile, TileChooser chooser, i64 elem_bytes);

// The chooser of a path with default tile `standard` and `alternative`: tile
// mode 16 takes the alternative and loop order 4; otherwise the default, and
// a zero loop order or tile mode becomes 2.
// Returns 1 when the record already held the tile, 0 when it was corrected.
int settle_tile(KernelParams* p, const GemmTile& standard, const GemmTile& alternative);

// The k-blocks of a product: blocks of kc, except that the rest, once it is
// at most `capacity`, goes in one last block. A short tail would otherwise
// cost a pass of its own over C.
struct DepthBlocks {
    i64 kc;
    i64 capacity;
};
using DepthRule = DepthBlocks (*)(i64 k, i64 ku);

// Depth of the k-block that starts at l0.
inline i64 block_depth(const DepthBlocks& d, i64 k, i64 l0) { return k - l0 <= d.capacity ? k - l0 : d.kc; }
inline i64 block_depth(const BlockPlan& plan, i64 k, i64 l0)
{
    return block_depth(DepthBlocks{plan.kc, plan.depth_capacity}, k, l0);
}

// How a path cuts a product: the cache blocks of its blocked road, and the
// k-blocks alone, which every road of the path takes so that an element's
// sums do not depend on the road.
struct BlockRule {
    BlockSizes sizes;
    DepthRule depths;
    i64 whole_depth;  // k up to this is one k-block: small products need not ask
};

// The blocks of the wider paths:
//   kc: k above 256 is split in two near-equal halves below 384 and in blocks
//       of 192 from there; up to 256 it is one block of at least 128; a
//       remainder of up to a quarter block joins the last block;
//   mc: all rows, at least one tile and at most 5000, in whole tiles;
//   nc: all columns, at least one tile, at most 24 for k below 48 and at
//       most 192 otherwise (96 complex elements), in whole tiles.
// The sizes also lay out the packed views and the buffer routines.
void standard_block_sizes(i64 m, i64 n, i64 k, const KernelParams* params, BlockPlan* plan);
extern const BlockRule kStandardBlocks;

// The blocks of the baseline paths, sized for 128-bit registers: 256 deep
// (up to 320 in the last block), 128 columns per slice (a 256 KiB slice of B
// stays in the second-level cache), up to 4992 rows per block.
void combined_block_sizes(i64 m, i64 n, i64 k, const KernelParams* params, BlockPlan* plan);
extern const BlockRule kCombinedBlocks;

// Bytes of the work buffer and where packed B starts in it.
i64 buffer_bytes(const BlockPlan& plan);
i64 packed_b_offset_bytes(const BlockPlan& plan);

// Takes the work buffer from the memory manager and points the packed views
// into it; a buffer the memory manager cannot supply leaves them null.
void acquire_buffer(BlockPlan* plan);
// Points the packed views into `memory`, of at least buffer_bytes, as
// acquire_buffer does with the memory manager's block.
void use_buffer(BlockPlan* plan, void* memory);
// Returns the buffer to the memory manager and clears the pointers.
void release_buffer(BlockPlan* plan);

}  // namespace orv
