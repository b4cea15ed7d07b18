// Which road a matrix product takes on a code path, and the product routed
// accordingly; and the blocked product that the other level-3 routines run.
#include "level3/gemm_route.h"

#include "level3/gemm_driver.h"
#include "level3/gemm_pack.h"
#include "level3/gemm_unpacked.h"
#include "service/elements.h"

namespace orv {
namespace {

// Below this many multiply-adds the baseline routine does not pack: the
// copies would cost about as much as the product.
constexpr i64 kCombinedUnpackedWork = 10000;

// The tiny kernel: everything at most 10 and beta exactly 1.
bool tiny_fits(const GemmShape& s)
{
    return s.m <= 10 && s.n <= 10 && s.k >= 1 && s.k <= 10 && s.beta == 1.0;
}

// The road once the small kernels are ruled out: C is scaled by beta first;
// alpha 0 (or k 0) then leaves nothing to add; thin shapes skip packing.
GemmEvent general_road(const GemmPath& path, const GemmShape& s)
{
    if (s.alpha == 0.0 || s.k == 0) return GemmEvent::scaled;
    if (path.routing == GemmRouting::combined) {
        const bool small = s.m < kCombinedUnpackedWork && s.n < kCombinedUnpackedWork &&
                           s.k < kCombinedUnpackedWork && s.m * s.n * s.k < kCombinedUnpackedWork;
        return small ? GemmEvent::thin : GemmEvent::blocked;
    }
    if (path.thin_road) {
        // op(A) transposed times B as is reads both along k: few rows are
        // thin. Every other form is thin with few columns.
        const bool rows_form = s.ta != 'N' && s.tb == 'N';
        if (rows_form ? s.m < 8 : s.n < 4) return GemmEvent::thin;
    }
    return GemmEvent::blocked;
}

GemmEvent tiny_or_general(const GemmPath& path, const GemmShape& s)
{
    return tiny_fits(s) ? GemmEvent::tiny : general_road(path, s);
}

// The direct small kernel pays off where each element of C needs few
// multiply-adds per element of A and B read; the limits are the path's.
GemmEvent small_and_tiny_road(const GemmPath& path, const GemmShape& s)
{
    // The two squares are taken directly whatever their q; a NaN beta is not 0.
    if (s.m == s.k && (s.m == 9 || s.m == 12) && s.beta == 0.0) return GemmEvent::direct;
    if (s.k > 128 || s.alpha == 0.0) return tiny_or_general(path, s);
    // q = mn / (m + n), truncated, is at most L exactly when mn < (L + 1)(m + n):
    // the same test without a division on the road of the smallest products.
    const bool low_q = s.m * s.n < (path.small_q_limit + 1) * (s.m + s.n);
    if (low_q) {
        if (s.m <= path.small_m_limit) return GemmEvent::direct;
        if (s.n > 3) return general_road(path, s);
        return s.k <= 3 ? GemmEvent::direct : general_road(path, s);
    }
    if (s.k > 6) return tiny_or_general(path, s);
    if (s.m > 40) return general_road(path, s);
    if (s.n > 40) return tiny_or_general(path, s);
    if (s.ta == 'N' || s.tb != 'N') return GemmEvent::direct;
    return tiny_or_general(path, s);
}

[[gnu::always_inline]] inline GemmEvent road_for(const GemmPath& path, const GemmShape& s)
{
    if (s.m <= 0 || s.n <= 0) return GemmEvent::none;
    switch (path.routing) {
    case GemmRouting::small_and_tiny: return small_and_tiny_road(path, s);
    case GemmRouting::tiny_only: return tiny_or_general(path, s);
    case GemmRouting::blocked_only:
    case GemmRouting::combined: return general_road(path, s);
    }
    return general_road(path, s);
}

// The unpacked product, inlined into the routing so that the smallest
// products pay for one call only, into the kernel.
[[gnu::always_inline]] inline void unpacked_product(const GemmPath& path, const GemmShape& s, const double* a,
                                                    i64 lda, const double* b, i64 ldb, double* c, i64 ldc)
{
    if (s.m < 1 || s.n < 1) return;
    if (s.alpha == 0.0 || s.k < 1) {
        scale_c(s.m, s.n, s.beta, c, ldc);
        return;
    }
    const bool ta = s.ta != 'N', tb = s.tb != 'N';
    // Most products that come this way are one k-block deep.
    if (s.k <= path.blocks->whole_depth) {
        path.unpacked(ta, tb, s.m, s.n, s.k, s.alpha, a, lda, b, ldb, s.beta, c, ldc);
        return;
    }
    const DepthBlocks depths = path.blocks->depths(s.k, kTileDepthUnroll);
    for (i64 l0 = 0, kb; l0 < s.k; l0 += kb) {
        kb = block_depth(depths, s.k, l0);
        path.unpacked(ta, tb, s.m, s.n, kb, s.alpha, ta ? a + l0 : a + l0 * lda, lda, tb ? b + l0 * ldb : b + l0,
                      ldb, l0 == 0 ? s.beta : 1.0, c, ldc);
    }
}

// The blocked road's fall-backs for general operands: the path's unpacked
// kernels, which give every element the bits of the blocked road.
void dgemm_fallback(const GemmOp<double>& op, const MatrixDesc<double>& a, const MatrixDesc<double>& b,
                    const MatrixDesc<double>& c, const GemmPlan<double>& plan)
{
    const GemmShape shape{view_letter(a.kind), view_letter(b.kind), c.rows, c.cols, a.cols, op.alpha, op.beta};
    unpacked_product(*plan.path, shape, a.base, a.ld, b.base, b.ld, c.base, c.ld);
}

// The complex product read in place, one call per k-block of the path;
// beta is 0 (the first block stores) or 1.
void unpacked_zgemm(const GemmPath& path, char ta, char tb, i64 m, i64 n, i64 k, dcomplex alpha,
                    const dcomplex* a, i64 lda, const dcomplex* b, i64 ldb, bool store, dcomplex* c, i64 ldc)
{
    const DepthBlocks depths = path.blocks->depths(k, kTileDepthUnroll);
    const double* alpha_parts = &alpha.re;
    for (i64 l0 = 0, kb; l0 < k; l0 += kb) {
        kb = block_depth(depths, k, l0);
        const dcomplex* al = ta != 'N' ? a + l0 : a + l0 * lda;
        const dcomplex* bl = tb != 'N' ? b + l0 * ldb : b + l0;
        zgemm_unpacked(ta, tb, m, n, kb, alpha_parts, &al->re, lda, &bl->re, ldb, store && l0 == 0, &c->re, ldc);
    }
}

void zgemm_fallback(const GemmOp<dcomplex>& op, const MatrixDesc<dcomplex>& a, const MatrixDesc<dcomplex>& b,
                    const MatrixDesc<dcomplex>& c, const GemmPlan<dcomplex>& plan)
{
    unpacked_zgemm(*plan.path, view_letter(a.kind), view_letter(b.kind), c.rows, c.cols, a.cols, op.alpha, a.base, a.ld,
                   b.base, b.ld, is_zero(op.beta), c.base, c.ld);
}

// The fall-back of shaped operands: the plan's packers and block routine on
// one register tile at a time, from small buffers on the stack, the depth in
// short pieces. (Slower, and its sums are cut differently from the blocked
// road's, but it needs no memory of its own.)
constexpr i64 kFallbackDepth = 32;
constexpr i64 kFallbackValues = 32 * 2 * kFallbackDepth;  // up to 32 rows or doubled columns per step

template <class T>
void tilewise_fallback(const GemmOp<T>& op, const MatrixDesc<T>& a, const MatrixDesc<T>& b, const MatrixDesc<T>& c,
                       const GemmPlan<T>& plan)
{
    const i64 m = c.rows, n = c.cols, k = a.cols, mr = plan.params.mr, nr = plan.params.nr;
    alignas(64) T packed_a[kFallbackValues / 2];
    alignas(64) T packed_b[kFallbackValues];
    BlockTask<T> task{};
    task.tile = plan.tile;
    task.ldc = c.ld;
    task.a = packed_a;
    task.b = packed_b;
    for (i64 l0 = 0; l0 < k; l0 += kFallbackDepth) {
        task.l = l0;
        task.k = k - l0 < kFallbackDepth ? k - l0 : kFallbackDepth;
        task.store = l0 == 0 && is_zero(op.beta);
        for (i64 j0 = 0; j0 < n; j0 += nr) {
            task.j = j0;
            task.w = n - j0 < nr ? n - j0 : nr;
            plan.pack_b(&b, l0, task.k, j0, task.w, one_of<T>(), nr, packed_b);
            for (i64 i0 = 0; i0 < m; i0 += mr) {
                task.i = i0;
                task.h = m - i0 < mr ? m - i0 : mr;
                plan.pack_a(&a, i0, task.h, l0, task.k, op.alpha, mr, packed_a);
                task.c = c.elem_addr(i0, j0, &c);
                plan.block(task);
            }
        }
    }
}

}  // namespace

GemmShape gemm_shape(const char* transa, const char* transb, const i64* m, const i64* n, const i64* k,
                     const double* alpha, const double* beta)
{
    return {option_letter(transa), option_letter(transb), *m, *n, *k, *alpha, *beta};
}

GemmEvent choose_gemm_road(const GemmPath& path, const GemmShape& s) { return road_for(path, s); }

namespace {

// A product on the blocked road with the path's tile for T: C scaled by beta
// once (0 clears it), then the blocked driver adds to it, as the unpacked
// kernels add their sums to a scaled C; with `prescale` off beta goes to the
// driver as it is. The driver tells the observer whether it ran blocked or
// fell back.
template <class T>
void product_on_path(const GemmPath& path, T alpha, T beta, const MatrixDesc<T>& a, const MatrixDesc<T>& b,
                     const MatrixDesc<T>& c, BlockRoutine<T> block, FallbackRoutine<T> fallback,
                     bool prescale = true)
{
    KernelParams params;
    const GemmTile* tile;
    if constexpr (is_complex<T>) {
        init_complex_params(path, &params);
        tile = path.ztile;
    } else {
        init_path_params(path, &params);
        tile = path_tile(path, params);
    }
    GemmPlan<T> plan = plan_product<T>(path, params, tile, fallback);
    plan.block = block;
    if (prescale && !is_one(beta)) {
        plan.scale(c.rows, c.cols, beta, c.base, c.ld);
        beta = one_of<T>();
    }
    const GemmOp<T> op{alpha, beta};
    blocked_driver(&op, &a, &b, &c, nullptr, &plan);
}

}  // namespace

void routed_dgemm(const GemmPath& path, const char* transa, const char* transb, const i64* m, const i64* n,
                  const i64* k, const double* alpha, const double* a, const i64* lda, const double* b,
                  const i64* ldb, const double* beta, double* c, const i64* ldc)
{
    const GemmShape shape = gemm_shape(transa, transb, m, n, k, alpha, beta);
    const GemmEvent road = road_for(path, shape);
    switch (road) {
    case GemmEvent::none:
        gemm_event(road);
        return;
    case GemmEvent::direct:
    case GemmEvent::tiny:
    case GemmEvent::thin:
        gemm_event(road);
        unpacked_product(path, shape, a, *lda, b, *ldb, c, *ldc);
        return;
    case GemmEvent::scaled:
        gemm_event(road);
        scale_c(shape.m, shape.n, shape.beta, c, *ldc);
        return;
    default:
        break;
    }
    product_on_path<double>(path, *alpha, *beta, describe_operand(storage_kind(transa), a, *m, *k, *lda),
                            describe_operand(storage_kind(transb), b, *k, *n, *ldb), describe_result(c, *m, *n, *ldc),
                            run_block<double>, dgemm_fallback);
}

// Complex products go straight to the blocked road: even at a few elements
// its complex tiles are faster than any loop that reads A and B in place.
void routed_zgemm(const GemmPath& path, const char* transa, const char* transb, const i64* m, const i64* n,
                  const i64* k, const dcomplex* alpha, const dcomplex* a, const i64* lda, const dcomplex* b,
                  const i64* ldb, const dcomplex* beta, dcomplex* c, const i64* ldc)
{
    if (*m < 1 || *n < 1) return;
    if (is_zero(*alpha) || *k < 1) {
        scale_c(*m, *n, *beta, c, *ldc);
        return;
    }
    product_on_path<dcomplex>(path, *alpha, *beta, describe_operand(storage_kind(transa), a, *m, *k, *lda),
                              describe_operand(storage_kind(transb), b, *k, *n, *ldb),
                              describe_result(c, *m, *n, *ldc), run_block<dcomplex>, zgemm_fallback);
}

template <class T>
void blocked_product(const GemmPath& path, T alpha, T beta, const MatrixDesc<T>& a, const MatrixDesc<T>& b,
                     const MatrixDesc<T>& c, BlockRoutine<T> block)
{
    product_on_path<T>(path, alpha, beta, a, b, c, block, tilewise_fallback<T>);
}

template <class T>
void product_over_operand(const GemmPath& path, const MatrixDesc<T>& a, const MatrixDesc<T>& b,
                          const MatrixDesc<T>& c, BlockRoutine<T> block, FallbackRoutine<T> fallback)
{
    product_on_path<T>(path, one_of<T>(), T{}, a, b, c, block, fallback, false);
}

template void product_over_operand<double>(const GemmPath&, const MatrixDesc<double>&, const MatrixDesc<double>&,
                                           const MatrixDesc<double>&, BlockRoutine<double>,
                                           FallbackRoutine<double>);
template void product_over_operand<dcomplex>(const GemmPath&, const MatrixDesc<dcomplex>&,
                                             const MatrixDesc<dcomplex>&, const MatrixDesc<dcomplex>&,
                                             BlockRoutine<dcomplex>, FallbackRoutine<dcomplex>);
template void blocked_product<double>(const GemmPath&, double, double, const MatrixDesc<double>&,
                                      const MatrixDesc<double>&, const MatrixDesc<double>&, BlockRoutine<double>);
template void blocked_product<dcomplex>(const GemmPath&, dcomplex, dcomplex, const MatrixDesc<dcomplex>&,
                                        const MatrixDesc<dcomplex>&, const MatrixDesc<dcomplex>&,
                                        BlockRoutine<dcomplex>);

}  // namespace orv
