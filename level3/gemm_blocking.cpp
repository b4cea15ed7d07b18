// The register tile and the cache blocks of a blocked product, and its work
// buffer.
#include "level3/gemm_blocking.h"

#include "level3/gemm_observer.h"
#include "service/memory.h"

namespace orv {

namespace {

// The depths are in multiples of 1 (kTileDepthUnroll): no division for them,
// which small products would notice.
i64 round_up(i64 x, i64 multiple) { return multiple == 1 ? x : (x + multiple - 1) / multiple * multiple; }
i64 min_of(i64 x, i64 y) { return x < y ? x : y; }
i64 max_of(i64 x, i64 y) { return x > y ? x : y; }

// Buffer layout: a 4 KiB aligned block; B starts 768 bytes past the page
// after A, so that the two packed streams do not fall on the same cache sets;
// 1664 bytes of slack let a kernel read a little past the last panel; blocks
// of 2 MiB and more come in whole huge pages, so that nearby sizes ask the
// memory manager for the same capacity and find their buffer in its cache.
constexpr i64 kSlackBytes = 1664;
constexpr i64 kHugePage = 2097152;
constexpr i64 kBOffset = 768;
constexpr i64 kPage = 4096;

// A remainder of at most a quarter of a block joins the last block: a short
// block pays the loads and stores of C for little work.
DepthBlocks with_tail(i64 k, i64 kc, i64 ku) { return {kc, max_of(1, min_of(k, round_up(kc + kc / 4, ku)))}; }

DepthBlocks standard_depths(i64 k, i64 ku)
{
    i64 kc;
    if (k > 256) kc = k < 384 ? round_up(k / 2, ku) : 192;
    else kc = max_of(round_up(k, ku), 128);
    return with_tail(k, kc, ku);
}

DepthBlocks combined_depths(i64 k, i64 ku) { return with_tail(k, round_up(max_of(min_of(k, 256), 1), ku), ku); }

void lay_out(i64 mc, i64 nc, DepthBlocks depths, const KernelParams* params, BlockPlan* plan)
{
    const i64 kcr = round_up(depths.kc, params->ku);
    plan->mc = mc;
    plan->nc = nc;
    plan->kc = depths.kc;
    plan->depth_capacity = depths.capacity;
    plan->elem_bytes = params->elem_bytes;
    plan->acquire = acquire_buffer;
    plan->release = release_buffer;
    plan->a = PackedView{mc, plan->depth_capacity, params->mr, params->mr * kcr, nullptr};
    // A tile that reads B values in pairs needs the packed B block twice as wide.
    const i64 copies = params->b_copies;
    plan->b = PackedView{plan->depth_capacity, nc * copies, params->nr * copies, params->nr * copies * kcr, nullptr};
    plan->buffer = nullptr;
}

}  // namespace

void init_kernel_params(KernelParams* p, const GemmTile& tile, TileChooser chooser, i64 elem_bytes)
{
    *p = KernelParams{};
    p->mr = tile.mr;
    p->nr = tile.nr;
    p->ku = kTileDepthUnroll;
    p->b_copies = tile.b_copies;
    p->elem_bytes = elem_bytes;
    p->choose_tile = chooser;
}

int settle_tile(KernelParams* p, const GemmTile& standard, const GemmTile& alternative)
{
    const bool alt = p->tile_mode == kTileModeAlternative;
    const GemmTile& tile = alt ? alternative : standard;
    if (alt) {
        p->loop_order = kLoopOrderAlternative;
    } else {
        if (p->loop_order == 0) p->loop_order = kLoopOrderDefault;
        if (p->tile_mode == 0) p->tile_mode = kTileModeDefault;
    }
    const bool held = p->mr == tile.mr && p->nr == tile.nr && p->ku == kTileDepthUnroll;
    p->mr = tile.mr;
    p->nr = tile.nr;
    p->ku = kTileDepthUnroll;
    p->b_copies = tile.b_copies;
    return held ? 1 : 0;
}

void standard_block_sizes(i64 m, i64 n, i64 k, const KernelParams* params, BlockPlan* plan)
{
    const i64 mr = params->mr, nr = params->nr;
    const i64 mc = round_up(min_of(max_of(m, mr), 5000), mr);
    // A slice of B of the same bytes for every element: 192 doubles wide.
    const i64 widest = 192 * 8 / params->elem_bytes;
    const i64 nc = round_up(min_of(max_of(n, nr), k < 48 ? 24 : widest), nr);
    lay_out(mc, nc, standard_depths(k, params->ku), params, plan);
}

const BlockRule kStandardBlocks = {standard_block_sizes, standard_depths, 256};

void combined_block_sizes(i64 m, i64 n, i64 k, const KernelParams* params, BlockPlan* plan)
{
    const i64 mr = params->mr, nr = params->nr;
    const i64 mc = round_up(min_of(max_of(m, mr), 4992), mr);
    const i64 nc = round_up(min_of(max_of(n, nr), 128), nr);
    lay_out(mc, nc, combined_depths(k, params->ku), params, plan);
}

const BlockRule kCombinedBlocks = {combined_block_sizes, combined_depths, 320};

i64 packed_b_offset_bytes(const BlockPlan& plan)
{
    return round_up(plan.a.rows * plan.a.cols * plan.elem_bytes, kPage) + kBOffset;
}

i64 buffer_bytes(const BlockPlan& plan)
{
    const i64 bytes = packed_b_offset_bytes(plan) + plan.b.rows * plan.b.cols * plan.elem_bytes + kSlackBytes;
    return round_up(bytes, bytes >= kHugePage ? kHugePage : kPage);
}

namespace {

// Clears the pointers; false when the observer withholds the buffer.
bool buffer_granted(BlockPlan* plan)
{
    plan->buffer = nullptr;
    plan->a.data = nullptr;
    plan->b.data = nullptr;
    return !gemm_event(GemmEvent::buffer_request);
}

void point_into(BlockPlan* plan, void* p)
{
    plan->buffer = p;
    plan->a.data = p;
    plan->b.data = static_cast<char*>(p) + packed_b_offset_bytes(*plan);
}

}  // namespace

void acquire_buffer(BlockPlan* plan)
{
    if (!buffer_granted(plan)) return;
    const auto bytes = static_cast<std::size_t>(buffer_bytes(*plan));
    void* p = orv_malloc(bytes, static_cast<int>(kPage));
    if (alloc_failed(p, plan->elem_bytes == 8 ? "DGEMM" : "ZGEMM")) return;
    point_into(plan, p);
}

void use_buffer(BlockPlan* plan, void* memory)
{
    if (buffer_granted(plan)) point_into(plan, memory);
}

void release_buffer(BlockPlan* plan)
{
    orv_free(plan->buffer);
    plan->buffer = nullptr;
    plan->a.data = nullptr;
    plan->b.data = nullptr;
}

}  // namespace orv
