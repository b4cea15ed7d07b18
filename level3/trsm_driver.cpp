// The real triangular solve of one code path.
#include "level3/trsm_driver.h"

#include <cfloat>

#include "level3/gemm_blocking.h"
#include "level3/gemm_driver.h"
#include "level3/gemm_observer.h"
#include "level3/gemm_pack.h"
#include "service/elements.h"

namespace orv {
namespace {

i64 min_of(i64 x, i64 y) { return x < y ? x : y; }

// The diagonal blocks of an order: blocks of kc from the top, the last one
// up to the plan's depth capacity.
struct DiagonalBlocks {
    i64 order, kc, count;
    i64 start(i64 index) const { return index * kc; }
    i64 depth(i64 index) const { return index == count - 1 ? order - index * kc : kc; }
};

DiagonalBlocks diagonal_blocks(const BlockPlan& blocks, i64 order)
{
    i64 count = 1;
    for (i64 l0 = 0; order - l0 > blocks.depth_capacity; l0 += blocks.kc) ++count;
    return {order, blocks.kc, count};
}

double* packed_a(const BlockPlan& blocks) { return static_cast<double*>(blocks.a.data); }
double* packed_b(const BlockPlan& blocks) { return static_cast<double*>(blocks.b.data); }
double* packed_triangle(const BlockPlan& blocks) { return packed_a(blocks) + blocks.mc * blocks.depth_capacity; }

// C += packed A times packed B with the plan's tile.
void add_product(const TrsmPlan& plan, i64 m, i64 n, i64 k, const double* a, const double* b, double* c, i64 ldc)
{
    plan.tile->accumulate(&m, &n, &k, a, b, c, &ldc);
}

// Side L, op(A) lower (Forward) or upper: the unknowns are rows of B. Each
// diagonal block is solved slice by slice of B's columns, and each solved
// slice is removed from the rows below (above) it.
template <bool Forward>
void left_driver(const TrsmCall& c, const TrsmPlan& plan, const BlockPlan& blocks)
{
    const MatrixDesc<double> opa = describe_operand(storage_kind(c.transa), c.a, c.m, c.m, c.lda);
    const MatrixDesc<double> b = describe_result(c.b, c.m, c.n, c.ldb);
    double* const tri = packed_triangle(blocks);
    const DiagonalBlocks diagonal = diagonal_blocks(blocks, c.m);
    for (i64 s = 0; s < diagonal.count; ++s) {
        const i64 index = Forward ? s : diagonal.count - 1 - s;
        const i64 d0 = diagonal.start(index), kb = diagonal.depth(index);
        // x * op(A)^T = b for each column: M(l', l) = op(A)(l, l').
        plan.pack_triangle(c.a + d0 + d0 * c.lda, c.lda, !c.trans, Forward, kb, plan.chunk, plan.params.b_copies,
                           tri);
        const i64 first = Forward ? d0 + kb : 0, last = Forward ? c.m : d0;
        // With one row block its packed rows serve every column slice.
        const bool one_row_block = last - first <= blocks.mc;
        for (i64 j0 = 0; j0 < c.n; j0 += blocks.nc) {
            const i64 nb = min_of(blocks.nc, c.n - j0);
            plan.pack_cols(&b, d0, kb, j0, nb, 1.0, plan.params.nr, packed_b(blocks));
            plan.solve(nb, kb, packed_b(blocks), tri, c.b + d0 + j0 * c.ldb, c.ldb);
            for (i64 r0 = first; r0 < last; r0 += blocks.mc) {
                const i64 rows = min_of(blocks.mc, last - r0);
                if (j0 == 0 || !one_row_block)
                    plan.pack_rows(&opa, r0, rows, d0, kb, -1.0, plan.params.mr, packed_a(blocks));
                add_product(plan, rows, nb, kb, packed_a(blocks), packed_b(blocks), c.b + r0 + j0 * c.ldb, c.ldb);
            }
        }
    }
}

// Side R, op(A) upper (Forward) or lower: the unknowns are columns of B.
// Each diagonal block is solved row block by row block of B, and each solved
// block is removed from the columns right (left) of it.
template <bool Forward>
void right_driver(const TrsmCall& c, const TrsmPlan& plan, const BlockPlan& blocks)
{
    const MatrixDesc<double> opa = describe_operand(storage_kind(c.transa), c.a, c.n, c.n, c.lda);
    const MatrixDesc<double> b = describe_result(c.b, c.m, c.n, c.ldb);
    double* const tri = packed_triangle(blocks);
    const DiagonalBlocks diagonal = diagonal_blocks(blocks, c.n);
    for (i64 s = 0; s < diagonal.count; ++s) {
        const i64 index = Forward ? s : diagonal.count - 1 - s;
        const i64 d0 = diagonal.start(index), kb = diagonal.depth(index);
        // M = op(A)'s block.
        plan.pack_triangle(c.a + d0 + d0 * c.lda, c.lda, c.trans, Forward, kb, plan.chunk, plan.params.b_copies,
                           tri);
        const i64 first = Forward ? d0 + kb : 0, last = Forward ? c.n : d0;
        for (i64 r0 = 0; r0 < c.m; r0 += blocks.mc) {
            const i64 mb = min_of(blocks.mc, c.m - r0);
            plan.pack_rows(&b, r0, mb, d0, kb, 1.0, plan.params.mr, packed_a(blocks));
            plan.solve(mb, kb, packed_a(blocks), tri, c.b + r0 + d0 * c.ldb, c.ldb);
            for (i64 j0 = first; j0 < last; j0 += blocks.nc) {
                const i64 nb = min_of(blocks.nc, last - j0);
                plan.pack_cols(&opa, d0, kb, j0, nb, -1.0, plan.params.nr, packed_b(blocks));
                add_product(plan, mb, nb, kb, packed_a(blocks), packed_b(blocks), c.b + r0 + j0 * c.ldb, c.ldb);
            }
        }
    }
}

// A nonzero value below the smallest normal one. Its reciprocal would
// overflow, so such a diagonal is divided by instead.
bool subnormal(double x)
{
    const double size = x < 0 ? -x : x;
    return size != 0.0 && size < DBL_MIN;
}

bool any_subnormal_diagonal(const double* a, i64 lda, i64 order)
{
    for (i64 i = 0; i < order; ++i)
        if (subnormal(a[i + i * lda])) return true;
    return false;
}

}  // namespace

bool trsm_direct_order(i64 order) { return order <= 12 || (order % 4 == 0 && order <= 88); }

void plan_trsm(const GemmPath& path, const TrsmKernels& kernels, const TrsmCall& call, TrsmPlan* plan)
{
    *plan = TrsmPlan{};
    init_path_params(path, &plan->params);
    plan->tile = path.tile;
    plan->block_sizes = path.blocks->sizes;
    plan->direct = kernels.direct;
    plan->pack_triangle = call.unit ? pack_triangle<double, true> : pack_triangle<double, false>;
    // The packers read each operand's storage from its view.
    plan->pack_rows = pack_a<double>;
    plan->pack_cols = plan->params.b_copies == 2 ? pack_b_doubled<double> : pack_b<double>;
    // op(A) is upper when A is upper and not transposed, or lower and transposed.
    const bool op_upper = call.upper != call.trans;
    if (call.left) {
        plan->driver = op_upper ? left_driver<false> : left_driver<true>;
        plan->solve = op_upper ? kernels.left_backward : kernels.left_forward;
        plan->chunk = kernels.left_chunk;
    } else {
        plan->driver = op_upper ? right_driver<true> : right_driver<false>;
        plan->solve = op_upper ? kernels.right_forward : kernels.right_backward;
        plan->chunk = kernels.right_chunk;
    }
}

void trsm_blocks(const TrsmCall& call, const TrsmPlan& plan, BlockPlan* blocks)
{
    const i64 order = call.left ? call.m : call.n;
    plan.block_sizes(call.m, call.n, order, &plan.params, blocks);
    // The triangle: depth_capacity squared, each value b_copies times.
    blocks->a.rows += blocks->depth_capacity * plan.params.b_copies;
}

void routed_dtrsm(const GemmPath& path, const TrsmKernels& kernels, const char* side, const char* uplo,
                  const char* transa, const char* diag, const i64* m, const i64* n, const double* alpha,
                  const double* a, const i64* lda, double* b, const i64* ldb)
{
    if (*m < 1 || *n < 1) {
        gemm_event(GemmEvent::none);
        return;
    }
    // Alpha first: 0 clears B without reading A, 1 leaves it as it is.
    scale_c(*m, *n, *alpha, b, *ldb);
    if (*alpha == 0.0) {
        gemm_event(GemmEvent::scaled);
        return;
    }
    const TrsmCall call = {option_letter(side) == 'L', option_letter(uplo) == 'U', option_letter(transa) != 'N',
                           option_letter(diag) == 'U', transa, *m, *n, a, *lda, b, *ldb};
    const i64 order = call.left ? call.m : call.n;
    // Small orders, and a subnormal diagonal value, whose reciprocal would
    // overflow, go to the direct kernel.
    if (trsm_direct_order(order) || (!call.unit && any_subnormal_diagonal(a, call.lda, order))) {
        gemm_event(GemmEvent::direct);
        kernels.direct(call.left, call.upper, call.trans, call.unit, call.m, call.n, a, call.lda, b, call.ldb);
        return;
    }
    TrsmPlan plan;
    plan_trsm(path, kernels, call, &plan);
    BlockPlan blocks;
    trsm_blocks(call, plan, &blocks);
    blocks.acquire(&blocks);
    if (blocks.buffer == nullptr) {
        // No memory for the packed blocks: the solve is still due.
        gemm_event(GemmEvent::fallback);
        plan.direct(call.left, call.upper, call.trans, call.unit, call.m, call.n, a, call.lda, b, call.ldb);
        return;
    }
    gemm_event(GemmEvent::blocked);
    plan.driver(call, plan, blocks);
    blocks.release(&blocks);
}

}  // namespace orv
