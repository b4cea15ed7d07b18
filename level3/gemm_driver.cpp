// The blocked, packed product.
#include "level3/gemm_driver.h"

#include "level3/gemm_blocking.h"
#include "level3/gemm_observer.h"
#include "level3/gemm_pack.h"

namespace orv {

void scale_c(i64 m, i64 n, double beta, double* c, i64 ldc)
{
    if (beta == 1.0) return;
    for (i64 j = 0; j < n; ++j) {
        double* cj = c + j * ldc;
        if (beta == 0.0) {
            for (i64 i = 0; i < m; ++i) cj[i] = 0.0;
        } else {
            for (i64 i = 0; i < m; ++i) cj[i] = beta * cj[i];
        }
    }
}

void run_block(const GemmTile* tile, i64 m, i64 n, i64 k, const double* a, const double* b, double* c, i64 ldc,
               double beta)
{
    const GemmMicroKernel kernel = beta == 0.0 ? tile->store : tile->accumulate;
    kernel(&m, &n, &k, a, b, c, &ldc);
}

void plan_gemm(const GemmPath& path, const GemmOp& op, const MatrixDesc& a, const MatrixDesc& b,
               const KernelParams& params, GemmPlan* plan)
{
    *plan = GemmPlan{};
    plan->thin_rows = 8;
    plan->thin_cols = 4;
    plan->reserved_word = 4;
    // Other modes belong to the routines that reuse the driver with packers of their own.
    (void)op;
    plan->pack_a = reads_transposed(a) ? pack_a_transposed : pack_a_plain;
    if (params.b_copies == 2) plan->pack_b = reads_transposed(b) ? pack_b_transposed_doubled : pack_b_plain_doubled;
    else plan->pack_b = reads_transposed(b) ? pack_b_transposed : pack_b_plain;
    plan->block = run_block;
    plan->scale = scale_c;
    plan->driver = blocked_driver;
    plan->fallback = path.fallback;
    plan->params = params;
    plan->tile = params.tile_mode == kTileModeAlternative ? path.alt_tile : path.tile;
    plan->block_sizes = path.blocks->sizes;
}

namespace {

i64 min_of(i64 x, i64 y) { return x < y ? x : y; }

// Rows of A packed at once when a panel is first needed: the columns of A are
// then read in runs of this many values instead of one panel's height, which
// the hardware can stream.
constexpr i64 kPackAheadRows = 96;

// The loop nest over one buffer. A panels are packed on their first use in a
// k-block, a group at a time, and reused by the later column slices of that
// k-block.
void blocked_loops(const GemmOp& op, const MatrixDesc& a, const MatrixDesc& b, const MatrixDesc& c,
                   const BlockPlan& blocks, const GemmPlan& plan, double beta)
{
    const i64 m = c.rows, n = c.cols, k = a.cols;
    const i64 mr = plan.params.mr, nr = plan.params.nr;
    double* const packed_a = blocks.a.data;
    double* const packed_b = blocks.b.data;
    for (i64 i0 = 0; i0 < m; i0 += blocks.mc) {
        const i64 mb = min_of(blocks.mc, m - i0);
        for (i64 l0 = 0; l0 < k;) {
            const i64 kb = block_depth(blocks, k, l0);
            // Beta belongs to the first k-block; the later ones add to it.
            const double block_beta = l0 == 0 ? beta : 1.0;
            i64 packed_rows = 0;
            for (i64 j0 = 0; j0 < n; j0 += blocks.nc) {
                const i64 nb = min_of(blocks.nc, n - j0);
                plan.pack_b(&b, l0, kb, j0, nb, 1.0, nr, packed_b);
                for (i64 ip = 0; ip < mb; ip += mr) {
                    const i64 h = min_of(mr, mb - ip);
                    double* panel = packed_a + ip * kb;
                    if (ip >= packed_rows) {
                        const i64 group = (kPackAheadRows + mr - 1) / mr * mr;
                        const i64 rows = min_of(group, mb - ip);
                        plan.pack_a(&a, i0 + ip, rows, l0, kb, op.alpha, mr, panel);
                        packed_rows = ip + rows;
                    }
                    plan.block(plan.tile, h, nb, kb, panel, packed_b, c.elem_addr(i0 + ip, j0, &c), c.ld,
                               block_beta);
                }
            }
            l0 += kb;
        }
    }
}

}  // namespace

void blocked_driver(const GemmOp* op, const MatrixDesc* a, const MatrixDesc* b, const MatrixDesc* c,
                    const BlockPlan* caller_plan, const GemmPlan* plan)
{
    i64 m = c->rows, n = c->cols, k = a->cols;
    if (m < 1 || n < 1) return;
    double beta = op->beta;
    double* c0 = c->elem_addr(0, 0, c);
    if (k == 0) {
        plan->scale(m, n, beta, c0, c->ld);
        return;
    }
    // From here on beta is 0 (the first k-block stores) or 1 (every block adds).
    if (beta != 1.0 && beta != 0.0) {
        plan->scale(m, n, beta, c0, c->ld);
        beta = 1.0;
    }
    if (op->alpha == 0.0) {
        if (beta == 0.0) plan->scale(m, n, beta, c0, c->ld);
        return;
    }

    BlockPlan blocks;
    if (caller_plan != nullptr) {
        blocks = *caller_plan;
    } else {
        plan->block_sizes(m, n, k, &plan->params, &blocks);
        blocks.acquire(&blocks);
    }
    if (blocks.buffer == nullptr) {
        // No memory for the packed panels: the product is still due.
        gemm_event(GemmEvent::fallback);
        plan->fallback(op->transa, op->transb, &m, &n, &k, &op->alpha, a->elem_addr(0, 0, a), &a->ld,
                       b->elem_addr(0, 0, b), &b->ld, &beta, c0, &c->ld);
        return;
    }
    gemm_event(GemmEvent::blocked);
    blocked_loops(*op, *a, *b, *c, blocks, *plan, beta);
    if (caller_plan == nullptr) blocks.release(&blocks);
}

}  // namespace orv
