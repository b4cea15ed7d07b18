// The triangular solve of one code path.
#include "level3/trsm_driver.h"

#include <cfloat>

#include "level3/gemm_blocking.h"
#include "level3/gemm_driver.h"
#include "level3/gemm_observer.h"
#include "level3/gemm_pack.h"
#include "level3/level3.h"
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

template <class T>
T* packed_a(const BlockPlan& blocks)
{
    return static_cast<T*>(blocks.a.data);
}
template <class T>
T* packed_b(const BlockPlan& blocks)
{
    return static_cast<T*>(blocks.b.data);
}
template <class T>
T* packed_triangle(const BlockPlan& blocks)
{
    return packed_a<T>(blocks) + blocks.mc * blocks.depth_capacity;
}

template <class T>
double* doubles(T* p)
{
    return reinterpret_cast<double*>(p);
}

// C += packed A times packed B with the plan's tile.
template <class T>
void add_product(const TrsmPlan<T>& plan, i64 m, i64 n, i64 k, T* a, T* b, T* c, i64 ldc)
{
    plan.tile->accumulate(&m, &n, &k, doubles(a), doubles(b), doubles(c), &ldc);
}

// Side L, op(A) lower (Forward) or upper: the unknowns are rows of B. Each
// diagonal block is solved slice by slice of B's columns, and each solved
// slice is removed from the rows below (above) it.
template <class T, bool Forward>
void left_driver(const TrsmCall<T>& c, const TrsmPlan<T>& plan, const BlockPlan& blocks)
{
    const MatrixDesc<T> opa = describe_operand(storage_kind(c.transa), c.a, c.m, c.m, c.lda);
    const MatrixDesc<T> b = describe_result(c.b, c.m, c.n, c.ldb);
    T* const tri = packed_triangle<T>(blocks), *const pa = packed_a<T>(blocks), *const pb = packed_b<T>(blocks);
    const T one = one_of<T>();
    const DiagonalBlocks diagonal = diagonal_blocks(blocks, c.m);
    for (i64 s = 0; s < diagonal.count; ++s) {
        const i64 index = Forward ? s : diagonal.count - 1 - s;
        const i64 d0 = diagonal.start(index), kb = diagonal.depth(index);
        // x * op(A)^T = b for each column: M(l', l) = op(A)(l, l').
        plan.pack_triangle(c.a + d0 + d0 * c.lda, c.lda, !c.trans, Forward, kb, plan.chunk, plan.triangle_copies,
                           tri);
        const i64 first = Forward ? d0 + kb : 0, last = Forward ? c.m : d0;
        // With one row block its packed rows serve every column slice.
        const bool one_row_block = last - first <= blocks.mc;
        for (i64 j0 = 0; j0 < c.n; j0 += blocks.nc) {
            const i64 nb = min_of(blocks.nc, c.n - j0);
            plan.pack_cols(&b, d0, kb, j0, nb, one, plan.params.nr, pb);
            plan.solve(nb, kb, doubles(pb), doubles(tri), doubles(c.b + d0 + j0 * c.ldb), c.ldb);
            for (i64 r0 = first; r0 < last; r0 += blocks.mc) {
                const i64 rows = min_of(blocks.mc, last - r0);
                if (j0 == 0 || !one_row_block) plan.pack_rows(&opa, r0, rows, d0, kb, -one, plan.params.mr, pa);
                add_product(plan, rows, nb, kb, pa, pb, c.b + r0 + j0 * c.ldb, c.ldb);
            }
        }
    }
}

// Side R, op(A) upper (Forward) or lower: the unknowns are columns of B.
// Each diagonal block is solved row block by row block of B, and each solved
// block is removed from the columns right (left) of it.
template <class T, bool Forward>
void right_driver(const TrsmCall<T>& c, const TrsmPlan<T>& plan, const BlockPlan& blocks)
{
    const MatrixDesc<T> opa = describe_operand(storage_kind(c.transa), c.a, c.n, c.n, c.lda);
    const MatrixDesc<T> b = describe_result(c.b, c.m, c.n, c.ldb);
    T* const tri = packed_triangle<T>(blocks), *const pa = packed_a<T>(blocks), *const pb = packed_b<T>(blocks);
    const T one = one_of<T>();
    const DiagonalBlocks diagonal = diagonal_blocks(blocks, c.n);
    for (i64 s = 0; s < diagonal.count; ++s) {
        const i64 index = Forward ? s : diagonal.count - 1 - s;
        const i64 d0 = diagonal.start(index), kb = diagonal.depth(index);
        // M = op(A)'s block.
        plan.pack_triangle(c.a + d0 + d0 * c.lda, c.lda, c.trans, Forward, kb, plan.chunk, plan.triangle_copies,
                           tri);
        const i64 first = Forward ? d0 + kb : 0, last = Forward ? c.n : d0;
        for (i64 r0 = 0; r0 < c.m; r0 += blocks.mc) {
            const i64 mb = min_of(blocks.mc, c.m - r0);
            plan.pack_rows(&b, r0, mb, d0, kb, one, plan.params.mr, pa);
            plan.solve(mb, kb, doubles(pa), doubles(tri), doubles(c.b + r0 + d0 * c.ldb), c.ldb);
            for (i64 j0 = first; j0 < last; j0 += blocks.nc) {
                const i64 nb = min_of(blocks.nc, last - j0);
                plan.pack_cols(&opa, d0, kb, j0, nb, -one, plan.params.nr, pb);
                add_product(plan, mb, nb, kb, pa, pb, c.b + r0 + j0 * c.ldb, c.ldb);
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

template <class T>
void plan_trsm(const GemmPath& path, const TrsmKernels& kernels, const TrsmCall<T>& call, TrsmPlan<T>* plan)
{
    *plan = TrsmPlan<T>{};
    const TrsmSolves* solves;
    if constexpr (is_complex<T>) {
        init_complex_params(path, &plan->params);
        plan->tile = path.ztile;
        solves = &kernels.complex;
        // The complex kernels read the triangle's values once each.
        plan->triangle_copies = 1;
        const bool conjugate = option_letter(call.transa) == 'C';
        if (call.unit) plan->pack_triangle = conjugate ? pack_triangle<T, true, true> : pack_triangle<T, true, false>;
        else plan->pack_triangle = conjugate ? pack_triangle<T, false, true> : pack_triangle<T, false, false>;
    } else {
        init_path_params(path, &plan->params);
        plan->tile = path.tile;
        solves = &kernels.real;
        plan->triangle_copies = plan->params.b_copies;
        plan->pack_triangle = call.unit ? pack_triangle<T, true, false> : pack_triangle<T, false, false>;
    }
    plan->block_sizes = path.blocks->sizes;
    // The packers read each operand's storage from its view.
    plan->pack_rows = pack_a<T>;
    plan->pack_cols = plan->params.b_copies == 2 ? pack_b_doubled<T> : pack_b<T>;
    // op(A) is upper when A is upper and not transposed, or lower and transposed.
    const bool op_upper = call.upper != call.trans;
    if (call.left) {
        plan->driver = op_upper ? left_driver<T, false> : left_driver<T, true>;
        plan->solve = op_upper ? solves->left_backward : solves->left_forward;
        plan->chunk = solves->left_chunk;
    } else {
        plan->driver = op_upper ? right_driver<T, true> : right_driver<T, false>;
        plan->solve = op_upper ? solves->right_forward : solves->right_backward;
        plan->chunk = solves->right_chunk;
    }
}

template <class T>
void trsm_blocks(const TrsmCall<T>& call, const TrsmPlan<T>& plan, BlockPlan* blocks)
{
    const i64 order = call.left ? call.m : call.n;
    plan.block_sizes(call.m, call.n, order, &plan.params, blocks);
    // The triangle: depth_capacity squared, each value triangle_copies times.
    blocks->a.rows += blocks->depth_capacity * plan.triangle_copies;
}

namespace {

// Alpha first: 0 clears B without reading A, 1 leaves it as it is. False
// when nothing is left to solve.
template <class T>
bool scale_first(i64 m, i64 n, T alpha, T* b, i64 ldb)
{
    if (m < 1 || n < 1) {
        gemm_event(GemmEvent::none);
        return false;
    }
    scale_c(m, n, alpha, b, ldb);
    if (is_zero(alpha)) {
        gemm_event(GemmEvent::scaled);
        return false;
    }
    return true;
}

template <class T>
TrsmCall<T> decode(const char* side, const char* uplo, const char* transa, const char* diag, i64 m, i64 n, const T* a,
                   i64 lda, T* b, i64 ldb)
{
    return {option_letter(side) == 'L', option_letter(uplo) == 'U', option_letter(transa) != 'N',
            option_letter(diag) == 'U', transa, m, n, a, lda, b, ldb};
}

// The blocked road; false when no buffer is to be had.
template <class T>
bool blocked_solve(const GemmPath& path, const TrsmKernels& kernels, const TrsmCall<T>& call)
{
    TrsmPlan<T> plan;
    plan_trsm(path, kernels, call, &plan);
    BlockPlan blocks;
    trsm_blocks(call, plan, &blocks);
    blocks.acquire(&blocks);
    if (blocks.buffer == nullptr) {
        gemm_event(GemmEvent::fallback);
        return false;
    }
    gemm_event(GemmEvent::blocked);
    plan.driver(call, plan, blocks);
    blocks.release(&blocks);
    return true;
}

// Whether some pivot's reciprocal is not finite.
bool reciprocal_overflows(const dcomplex* a, i64 lda, i64 order)
{
    for (i64 i = 0; i < order; ++i) {
        const dcomplex r = one_of<dcomplex>() / a[i + i * lda];
        if (!(r.re - r.re == 0.0 && r.im - r.im == 0.0)) return true;
    }
    return false;
}

}  // namespace

void routed_dtrsm(const GemmPath& path, const TrsmKernels& kernels, const char* side, const char* uplo,
                  const char* transa, const char* diag, const i64* m, const i64* n, const double* alpha,
                  const double* a, const i64* lda, double* b, const i64* ldb)
{
    if (!scale_first(*m, *n, *alpha, b, *ldb)) return;
    const TrsmCall<double> call = decode(side, uplo, transa, diag, *m, *n, a, *lda, b, *ldb);
    const i64 order = call.left ? call.m : call.n;
    // Small orders, and a subnormal diagonal value, whose reciprocal would
    // overflow, go to the direct kernel, as does a solve without a buffer.
    const bool direct = trsm_direct_order(order) || (!call.unit && any_subnormal_diagonal(a, call.lda, order));
    if (direct) gemm_event(GemmEvent::direct);
    if (direct || !blocked_solve(path, kernels, call))
        kernels.direct(call.left, call.upper, call.trans, call.unit, call.m, call.n, a, call.lda, b, call.ldb);
}

void routed_ztrsm(const GemmPath& path, const TrsmKernels& kernels, const char* side, const char* uplo,
                  const char* transa, const char* diag, const i64* m, const i64* n, const dcomplex* alpha,
                  const dcomplex* a, const i64* lda, dcomplex* b, const i64* ldb)
{
    if (!scale_first(*m, *n, *alpha, b, *ldb)) return;
    const TrsmCall<dcomplex> call = decode(side, uplo, transa, diag, *m, *n, a, *lda, b, *ldb);
    const bool divide = !call.unit && reciprocal_overflows(a, call.lda, call.left ? call.m : call.n);
    if (divide) gemm_event(GemmEvent::direct);
    if (divide || !blocked_solve(path, kernels, call)) {
        // B holds alpha B already.
        const dcomplex one = one_of<dcomplex>();
        plain::ztrsm(side, uplo, transa, diag, m, n, &one, a, lda, b, ldb);
    }
}

template void plan_trsm<double>(const GemmPath&, const TrsmKernels&, const TrsmCall<double>&, TrsmPlan<double>*);
template void plan_trsm<dcomplex>(const GemmPath&, const TrsmKernels&, const TrsmCall<dcomplex>&,
                                  TrsmPlan<dcomplex>*);
template void trsm_blocks<double>(const TrsmCall<double>&, const TrsmPlan<double>&, BlockPlan*);
template void trsm_blocks<dcomplex>(const TrsmCall<dcomplex>&, const TrsmPlan<dcomplex>&, BlockPlan*);

}  // namespace orv
