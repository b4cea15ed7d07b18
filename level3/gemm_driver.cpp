// The blocked, packed product.
#include "level3/gemm_driver.h"

#include "level3/gemm_blocking.h"
#include "level3/gemm_path.h"
#include "level3/gemm_observer.h"
#include "level3/gemm_pack.h"
#include "service/elements.h"

namespace orv {

template <class T>
void scale_c(i64 m, i64 n, T beta, T* c, i64 ldc)
{
    for (i64 j = 0; j < n; ++j) scale_by(0, m, beta, c + j * ldc);
}

template <class T>
void run_block(const BlockTask<T>& t)
{
    const GemmMicroKernel kernel = t.store ? t.tile->store : t.tile->accumulate;
    kernel(&t.h, &t.w, &t.k, reinterpret_cast<const double*>(t.a), reinterpret_cast<const double*>(t.b),
           reinterpret_cast<double*>(t.c), &t.ldc);
}

template <class T>
GemmPlan<T> plan_product(const GemmPath& path, const KernelParams& params, const GemmTile* tile,
                         FallbackRoutine<T> fallback)
{
    GemmPlan<T> plan{};
    plan.path = &path;
    plan.pack_a = pack_a<T>;
    plan.pack_b = params.b_copies == 2 ? pack_b_doubled<T> : pack_b<T>;
    plan.block = run_block<T>;
    plan.scale = scale_c<T>;
    plan.fallback = fallback;
    plan.params = params;
    plan.tile = tile;
    plan.block_sizes = path.blocks->sizes;
    return plan;
}

namespace {

i64 min_of(i64 x, i64 y) { return x < y ? x : y; }

// Rows of A packed at once when a panel is first needed: the columns of A are
// then read in runs of this many values instead of one panel's height, which
// the hardware can stream.
constexpr i64 kPackAheadRows = 96;

// Work buffers up to this size live on the stack: a small product would
// pay the memory manager more than its packing.
constexpr i64 kSmallBufferBytes = 16384;

// The loop nest over one buffer. A panels are packed on their first use in a
// k-block, a group at a time, and reused by the later column slices of that
// k-block.
template <class T>
void blocked_loops(const GemmOp<T>& op, const MatrixDesc<T>& a, const MatrixDesc<T>& b, const MatrixDesc<T>& c,
                   const BlockPlan& blocks, const GemmPlan<T>& plan, bool store_first)
{
    const i64 m = c.rows, n = c.cols, k = a.cols;
    const i64 mr = plan.params.mr, nr = plan.params.nr;
    T* const packed_a = static_cast<T*>(blocks.a.data);
    T* const packed_b = static_cast<T*>(blocks.b.data);
    BlockTask<T> task{};
    task.tile = plan.tile;
    task.ldc = c.ld;
    task.b = packed_b;
    for (i64 i0 = 0; i0 < m; i0 += blocks.mc) {
        const i64 mb = min_of(blocks.mc, m - i0);
        for (i64 l0 = 0; l0 < k;) {
            const i64 kb = block_depth(blocks, k, l0);
            // Beta belongs to the first k-block; the later ones add to it.
            task.store = store_first && l0 == 0;
            task.l = l0;
            task.k = kb;
            i64 packed_rows = 0;
            for (i64 j0 = 0; j0 < n; j0 += blocks.nc) {
                const i64 nb = min_of(blocks.nc, n - j0);
                plan.pack_b(&b, l0, kb, j0, nb, one_of<T>(), nr, packed_b);
                task.j = j0;
                task.w = nb;
                for (i64 ip = 0; ip < mb; ip += mr) {
                    T* panel = packed_a + ip * kb;
                    if (ip >= packed_rows) {
                        const i64 group = (kPackAheadRows + mr - 1) / mr * mr;
                        const i64 rows = min_of(group, mb - ip);
                        plan.pack_a(&a, i0 + ip, rows, l0, kb, op.alpha, mr, panel);
                        packed_rows = ip + rows;
                    }
                    task.i = i0 + ip;
                    task.h = min_of(mr, mb - ip);
                    task.a = panel;
                    task.c = c.elem_addr(i0 + ip, j0, &c);
                    plan.block(task);
                }
            }
            l0 += kb;
        }
    }
}

}  // namespace

template <class T>
void blocked_driver(const GemmOp<T>* op, const MatrixDesc<T>* a, const MatrixDesc<T>* b, const MatrixDesc<T>* c,
                    const BlockPlan* caller_plan, const GemmPlan<T>* plan)
{
    const i64 m = c->rows, n = c->cols, k = a->cols;
    if (m < 1 || n < 1) return;
    T beta = op->beta;
    T* c0 = c->elem_addr(0, 0, c);
    if (k == 0) {
        plan->scale(m, n, beta, c0, c->ld);
        return;
    }
    // From here on beta is 0 (the first k-block stores) or 1 (every block adds).
    if (!is_one(beta) && !is_zero(beta)) {
        plan->scale(m, n, beta, c0, c->ld);
        beta = one_of<T>();
    }
    if (is_zero(op->alpha)) {
        if (is_zero(beta)) plan->scale(m, n, beta, c0, c->ld);
        return;
    }

    BlockPlan blocks;
    alignas(64) char small_buffer[kSmallBufferBytes];
    if (caller_plan != nullptr) {
        blocks = *caller_plan;
    } else {
        plan->block_sizes(m, n, k, &plan->params, &blocks);
        if (buffer_bytes(blocks) <= kSmallBufferBytes) use_buffer(&blocks, small_buffer);
        else blocks.acquire(&blocks);
    }
    if (blocks.buffer == nullptr) {
        // No memory for the packed panels: the product is still due.
        gemm_event(GemmEvent::fallback);
        plan->fallback(GemmOp<T>{op->alpha, beta}, *a, *b, *c, *plan);
        return;
    }
    gemm_event(GemmEvent::blocked);
    blocked_loops(*op, *a, *b, *c, blocks, *plan, is_zero(beta));
    if (caller_plan == nullptr && blocks.buffer != small_buffer) blocks.release(&blocks);
}

template void scale_c<double>(i64, i64, double, double*, i64);
template void scale_c<dcomplex>(i64, i64, dcomplex, dcomplex*, i64);
template void run_block<double>(const BlockTask<double>&);
template void run_block<dcomplex>(const BlockTask<dcomplex>&);
template GemmPlan<double> plan_product<double>(const GemmPath&, const KernelParams&, const GemmTile*,
                                               FallbackRoutine<double>);
template GemmPlan<dcomplex> plan_product<dcomplex>(const GemmPath&, const KernelParams&, const GemmTile*,
                                                   FallbackRoutine<dcomplex>);
template void blocked_driver<double>(const GemmOp<double>*, const MatrixDesc<double>*, const MatrixDesc<double>*,
                                     const MatrixDesc<double>*, const BlockPlan*, const GemmPlan<double>*);
template void blocked_driver<dcomplex>(const GemmOp<dcomplex>*, const MatrixDesc<dcomplex>*,
                                       const MatrixDesc<dcomplex>*, const MatrixDesc<dcomplex>*, const BlockPlan*,
                                       const GemmPlan<dcomplex>*);

}  // namespace orv
