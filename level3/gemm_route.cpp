// Which road a real matrix product takes on a code path, and the product
// routed accordingly.
#include "level3/gemm_route.h"

#include "level3/gemm_driver.h"
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

}  // namespace

GemmShape gemm_shape(const char* transa, const char* transb, const i64* m, const i64* n, const i64* k,
                     const double* alpha, const double* beta)
{
    return {option_letter(transa), option_letter(transb), *m, *n, *k, *alpha, *beta};
}

GemmEvent choose_gemm_road(const GemmPath& path, const GemmShape& s) { return road_for(path, s); }

void unpacked_dgemm(const GemmPath& path, const GemmShape& s, const double* a, i64 lda, const double* b, i64 ldb,
                    double* c, i64 ldc)
{
    unpacked_product(path, s, a, lda, b, ldb, c, ldc);
}

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

    const GemmOp op = describe_gemm(transa, transb, *alpha, *beta);
    const MatrixDesc da = describe_operand(transa, a, *m, *k, *lda);
    const MatrixDesc db = describe_operand(transb, b, *k, *n, *ldb);
    const MatrixDesc dc = describe_result(c, *m, *n, *ldc);
    KernelParams params;
    init_path_params(path, &params);
    GemmPlan plan;
    plan_gemm(path, op, da, db, params, &plan);

    // Beta is folded into C once, here; everything after only adds. The
    // driver tells the observer whether it ran blocked or fell back.
    GemmOp added = op;
    if (added.beta != 1.0) {
        plan.scale(*m, *n, added.beta, c, *ldc);
        added.beta = 1.0;
    }
    plan.driver(&added, &da, &db, &dc, nullptr, &plan);
}

}  // namespace orv
