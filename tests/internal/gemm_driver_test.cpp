// The single-thread real product: the k-blocks, the road each code path
// takes, the packed layouts, the blocked driver over every tile this
// processor can run, and the unpacked fall-back when no buffer can be had.
// Then the triangular solve built on the same pieces, real and complex: its
// roads, its blocked drivers and its fall-back.
//
// Inputs are coarse values (12 significant bits), so every sum here is exact
// whatever its order: results are compared bit for bit.

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <ostream>
#include <string>
#include <vector>

#include "level3/gemm_blocking.h"
#include "level3/structured.h"
#include "level3/gemm_driver.h"
#include "level3/gemm_pack.h"
#include "level3/gemm_route.h"
#include "level3/level3.h"
#include "level3/trsm_driver.h"
#include "orv_test.h"

namespace orv {
// Names for the failure messages.
void PrintTo(GemmEvent event, std::ostream* os)
{
    static const char* const names[] = {"none", "direct", "tiny", "scaled", "thin", "blocked", "fallback",
                                        "buffer_request"};
    *os << names[static_cast<int>(event)];
}
}  // namespace orv

namespace {

using orv::GemmEvent;
using orv::GemmPath;
using orv::i64;
using orvtest::Rng;

// ---- Helpers ---------------------------------------------------------------

orv::KernelParams params_for(int mr, int nr)
{
    orv::KernelParams p{};
    p.mr = mr;
    p.nr = nr;
    p.ku = 1;
    p.b_copies = 1;
    p.elem_bytes = sizeof(double);
    return p;
}

// Whether this processor runs the kernels of `path` (the instruction sets its
// kernel folder is compiled for).
bool processor_runs(const GemmPath& path)
{
    const std::string name = path.name;
    const bool avx2 = __builtin_cpu_supports("avx2") && __builtin_cpu_supports("fma");
    const bool avx512f = avx2 && __builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512cd");
    if (name == "avx512")
        return avx512f && __builtin_cpu_supports("avx512dq") && __builtin_cpu_supports("avx512bw") &&
               __builtin_cpu_supports("avx512vl");
    if (name == "avx512_qix") return avx512f;
    if (name == "avx2") return avx2 && __builtin_cpu_supports("bmi") && __builtin_cpu_supports("bmi2");
    if (name == "avx") return __builtin_cpu_supports("avx");
    if (name == "mc3") return __builtin_cpu_supports("sse4.2") && __builtin_cpu_supports("popcnt");
    if (name == "mc") return __builtin_cpu_supports("ssse3");
    return true;
}

using DgemmRoutine = decltype(&orv::dgemm_member<orv::kGemmPathDef>);

// The dgemm member of each path.
const struct {
    const GemmPath* path;
    DgemmRoutine member;
} kMembers[] = {
    {&orv::kGemmPathAvx512, orv::dgemm_member<orv::kGemmPathAvx512>},
    {&orv::kGemmPathAvx512Qix, orv::dgemm_member<orv::kGemmPathAvx512Qix>},
    {&orv::kGemmPathAvx2, orv::dgemm_member<orv::kGemmPathAvx2>},
    {&orv::kGemmPathAvx, orv::dgemm_member<orv::kGemmPathAvx>},
    {&orv::kGemmPathMc3, orv::dgemm_member<orv::kGemmPathMc3>},
    {&orv::kGemmPathMc, orv::dgemm_member<orv::kGemmPathMc>},
    {&orv::kGemmPathDef, orv::dgemm_member<orv::kGemmPathDef>},
};

// Every event of the products since the last clear; a withheld buffer on request.
std::vector<GemmEvent> g_events;
bool g_withhold_buffer = false;
bool record_event(GemmEvent event)
{
    g_events.push_back(event);
    return event == GemmEvent::buffer_request && g_withhold_buffer;
}
struct Observe {
    explicit Observe(bool withhold)
    {
        g_events.clear();
        g_withhold_buffer = withhold;
        orv::set_gemm_observer(record_event);
    }
    ~Observe() { orv::set_gemm_observer(nullptr); }
};
// The road of the last product: the last event that is not a buffer request.
GemmEvent last_road()
{
    for (auto it = g_events.rbegin(); it != g_events.rend(); ++it)
        if (*it != GemmEvent::buffer_request) return *it;
    return GemmEvent::none;
}

// A product with exact coarse inputs and its exact result.
struct Product {
    char ta, tb;
    i64 m, n, k;
    double alpha, beta;
    i64 lda, ldb, ldc;
    std::vector<double> a, b, c, want;

    Product(char ta_, char tb_, i64 m_, i64 n_, i64 k_, double alpha_, double beta_, std::uint64_t seed)
        : ta(ta_), tb(tb_), m(m_), n(n_), k(k_), alpha(alpha_), beta(beta_)
    {
        Rng rng(seed);
        const bool tra = std::toupper(ta) != 'N', trb = std::toupper(tb) != 'N';
        lda = (tra ? k : m) + 3;
        ldb = (trb ? n : k) + 1;
        ldc = m + 2;
        a.resize(std::size_t(lda * (tra ? m : k) + 1));
        b.resize(std::size_t(ldb * (trb ? k : n) + 1));
        c.resize(std::size_t(ldc * n + 1));
        for (double& x : a) x = rng.coarse();
        for (double& x : b) x = rng.coarse();
        // C is not read when beta is 0: fill it with what must not survive.
        for (std::size_t i = 0; i < c.size(); ++i) c[i] = beta == 0.0 ? (i % 2 ? NAN : INFINITY) : rng.coarse();
        want = c;
        for (i64 j = 0; j < n; ++j)
            for (i64 i = 0; i < m; ++i) {
                double sum = 0;
                for (i64 l = 0; l < k; ++l)
                    sum += (tra ? a[l + i * lda] : a[i + l * lda]) * (trb ? b[j + l * ldb] : b[l + j * ldb]);
                double& w = want[i + j * ldc];
                w = (beta == 0.0 ? 0.0 : beta * w) + alpha * sum;
            }
    }
    ::testing::AssertionResult matches() const
    {
        for (std::size_t i = 0; i < c.size(); ++i)
            if (!orvtest::same_bits(c[i], want[i]))
                return ::testing::AssertionFailure() << "element " << i << " (row " << i % ldc << ", column "
                                                     << i / ldc << ") is " << c[i] << ", want " << want[i];
        return ::testing::AssertionSuccess();
    }
    std::string describe() const
    {
        return std::string(1, ta) + tb + " m=" + std::to_string(m) + " n=" + std::to_string(n) +
               " k=" + std::to_string(k) + " alpha=" + std::to_string(alpha) + " beta=" + std::to_string(beta);
    }
};

// Runs `p` through the blocked driver of `path` with tile mode `tile_mode`,
// optionally with a caller's plan of small blocks so that small products
// cross every block edge.
void run_driver(const GemmPath& path, int tile_mode, Product& p, bool small_blocks)
{
    const orv::GemmOp<double> op{p.alpha, p.beta};
    const auto a = orv::describe_operand(orv::storage_kind(&p.ta), p.a.data(), p.m, p.k, p.lda);
    const auto b = orv::describe_operand(orv::storage_kind(&p.tb), p.b.data(), p.k, p.n, p.ldb);
    const auto c = orv::describe_result(p.c.data(), p.m, p.n, p.ldc);
    orv::KernelParams params;
    orv::init_kernel_params(&params, *path.tile, path.choose_tile, sizeof(double));
    params.tile_mode = tile_mode;
    params.choose_tile(&params);
    const auto fallback = [](const orv::GemmOp<double>&, const orv::MatrixDesc<double>&,
                             const orv::MatrixDesc<double>&, const orv::MatrixDesc<double>&,
                             const orv::GemmPlan<double>&) { ADD_FAILURE() << "the buffer was there"; };
    const orv::GemmPlan<double> plan = orv::plan_product<double>(path, params, orv::path_tile(path, params), fallback);
    if (!small_blocks) {
        orv::blocked_driver(&op, &a, &b, &c, nullptr, &plan);
        return;
    }
    orv::BlockPlan blocks;
    orv::standard_block_sizes(p.m, p.n, p.k, &params, &blocks);
    blocks.mc = 2 * params.mr;
    blocks.nc = 2 * params.nr;
    blocks.kc = 16;
    blocks.depth_capacity = 18;
    blocks.a.rows = blocks.mc;
    blocks.a.cols = blocks.depth_capacity;
    blocks.b.rows = blocks.depth_capacity;
    blocks.b.cols = blocks.nc * params.b_copies;
    orv::acquire_buffer(&blocks);
    ASSERT_NE(blocks.buffer, nullptr);
    void* const buffer = blocks.buffer;
    orv::blocked_driver(&op, &a, &b, &c, &blocks, &plan);
    EXPECT_EQ(blocks.buffer, buffer) << "a caller's buffer stays the caller's";
    orv::release_buffer(&blocks);
}

// ---- Blocks ------------------------------------------------------------------

// The k-blocks the driver walks: blocks of kc, a short tail joined to the last.
TEST(GemmBlocks, DepthsCoverTheInnerDimension)
{
    const struct {
        i64 k;
        std::vector<i64> depths;
    } cases[] = {
        {100, {100}},
        {257, {128, 129}},
        {300, {150, 150}},
        {383, {191, 192}},
        {385, {192, 193}},
        {416, {192, 224}},
        {441, {192, 192, 57}},
        {1000, {192, 192, 192, 192, 232}},
    };
    const orv::KernelParams params = params_for(12, 4);
    for (const auto& t : cases) {
        orv::BlockPlan plan;
        orv::standard_block_sizes(50, 50, t.k, &params, &plan);
        std::vector<i64> depths;
        for (i64 l0 = 0; l0 < t.k; l0 += depths.back()) depths.push_back(orv::block_depth(plan, t.k, l0));
        EXPECT_EQ(depths, t.depths) << "k=" << t.k;
        for (i64 d : depths) EXPECT_LE(d, plan.depth_capacity) << "k=" << t.k;
        // The buffer holds both packed blocks at the deepest depth, B past A.
        EXPECT_GE(orv::packed_b_offset_bytes(plan), plan.mc * plan.depth_capacity * 8);
        EXPECT_GE(orv::buffer_bytes(plan),
                  orv::packed_b_offset_bytes(plan) + plan.nc * plan.depth_capacity * 8);
    }
}

// The k-blocks of a rule, which every road of a path takes: the unpacked
// roads ask the rule only above its whole depth, and the fused unpacked
// kernels hold at most 256 values of k.
TEST(GemmBlocks, EveryRoadCanTakeTheRulesDepths)
{
    const orv::KernelParams params = params_for(12, 4);
    for (const orv::BlockRule* rule : {&orv::kStandardBlocks, &orv::kCombinedBlocks}) {
        for (i64 k = 1; k <= 2000; ++k) {
            const orv::DepthBlocks depths = rule->depths(k, orv::kTileDepthUnroll);
            orv::BlockPlan plan;
            rule->sizes(50, 50, k, &params, &plan);
            ASSERT_EQ(plan.kc, depths.kc) << "k=" << k;
            ASSERT_EQ(plan.depth_capacity, depths.capacity) << "k=" << k;
            ASSERT_EQ(orv::block_depth(depths, k, 0) == k, k <= rule->whole_depth) << "k=" << k;
            if (rule != &orv::kStandardBlocks) continue;
            for (i64 l0 = 0, kb; l0 < k; l0 += kb) {
                kb = orv::block_depth(depths, k, l0);
                ASSERT_LE(kb, 256) << "k=" << k;
            }
        }
    }
}

// ---- Routing ---------------------------------------------------------------

TEST(GemmRouting, RoadOfEveryPath)
{
    using E = GemmEvent;
    const double nan = std::nan("");
    const struct {
        const GemmPath* path;
        char ta, tb;
        i64 m, n, k;
        double alpha, beta;
        E road;
    } cases[] = {
        // The wider paths with the direct kernel.
        {&orv::kGemmPathAvx2, 'N', 'N', 0, 5, 5, 1, 0, E::none},
        {&orv::kGemmPathAvx2, 'N', 'N', 5, 0, 5, 1, 0, E::none},
        {&orv::kGemmPathAvx2, 'N', 'N', 9, 9, 9, 1, 0, E::direct},
        {&orv::kGemmPathAvx2, 'N', 'N', 12, 12, 12, 1, 0, E::direct},
        {&orv::kGemmPathAvx2, 'N', 'N', 12, 1000, 12, 1, 0, E::direct},  // the square rule, whatever q
        {&orv::kGemmPathAvx2, 'N', 'N', 12, 1000, 12, 1, 0.5, E::blocked},
        {&orv::kGemmPathAvx2, 'N', 'N', 12, 1000, 12, 1, nan, E::blocked},
        {&orv::kGemmPathAvx2, 'N', 'N', 10, 10, 10, 1, 1, E::direct},
        {&orv::kGemmPathAvx2, 'N', 'N', 10, 10, 10, 0, 1, E::tiny},
        {&orv::kGemmPathAvx2, 'N', 'N', 10, 10, 10, 0, 0.5, E::scaled},
        {&orv::kGemmPathAvx2, 'N', 'N', 20, 20, 50, 1, 1, E::direct},   // q = 10
        {&orv::kGemmPathAvx2, 'N', 'N', 101, 5, 50, 1, 1, E::blocked},  // q <= 10 but m > 100
        {&orv::kGemmPathAvx2, 'N', 'N', 101, 3, 3, 1, 1, E::direct},
        {&orv::kGemmPathAvx2, 'N', 'N', 101, 3, 4, 1, 1, E::thin},
        {&orv::kGemmPathAvx2, 'N', 'N', 30, 30, 6, 1, 1, E::direct},    // q > 10, shallow
        {&orv::kGemmPathAvx2, 'T', 'T', 30, 30, 6, 1, 1, E::direct},
        {&orv::kGemmPathAvx2, 'T', 'N', 30, 30, 6, 1, 1, E::blocked},
        {&orv::kGemmPathAvx2, 'N', 'N', 30, 30, 7, 1, 1, E::blocked},
        {&orv::kGemmPathAvx2, 'N', 'N', 41, 30, 6, 1, 1, E::blocked},
        {&orv::kGemmPathAvx2, 'N', 'N', 30, 41, 6, 1, 1, E::blocked},
        {&orv::kGemmPathAvx2, 'N', 'N', 5, 5, 129, 1, 1, E::blocked},
        {&orv::kGemmPathAvx2, 'N', 'N', 5, 5, 0, 1, 1, E::direct},
        {&orv::kGemmPathAvx2, 'T', 'N', 7, 1000, 1000, 1, 1, E::thin},  // few rows of a dot-product form
        {&orv::kGemmPathAvx2, 'T', 'N', 8, 1000, 1000, 1, 1, E::blocked},
        {&orv::kGemmPathAvx2, 'N', 'T', 7, 1000, 1000, 1, 1, E::blocked},
        {&orv::kGemmPathAvx2, 'N', 'N', 1000, 3, 1000, 1, 1, E::thin},  // few columns of the other forms
        {&orv::kGemmPathAvx2, 'T', 'T', 1000, 3, 1000, 1, 1, E::thin},
        {&orv::kGemmPathAvx2, 'N', 'N', 1000, 4, 1000, 1, 1, E::blocked},
        {&orv::kGemmPathAvx2, 'N', 'N', 1000, 1000, 1000, 0, 1, E::scaled},
        {&orv::kGemmPathAvx, 'N', 'N', 20, 20, 50, 1, 1, E::blocked},   // q = 10 is past the limit of 9
        {&orv::kGemmPathAvx, 'N', 'N', 70, 5, 50, 1, 1, E::direct},
        {&orv::kGemmPathAvx, 'N', 'N', 71, 5, 50, 1, 1, E::blocked},
        {&orv::kGemmPathAvx, 'N', 'N', 71, 3, 3, 1, 1, E::direct},
        {&orv::kGemmPathAvx, 'N', 'N', 9, 9, 9, 1, 0, E::direct},
        // The tiny kernel alone.
        {&orv::kGemmPathAvx512, 'N', 'N', 10, 10, 10, 1, 1, E::tiny},
        {&orv::kGemmPathAvx512, 'N', 'N', 10, 10, 10, 0, 1, E::tiny},
        {&orv::kGemmPathAvx512, 'N', 'N', 10, 10, 11, 1, 1, E::blocked},
        {&orv::kGemmPathAvx512, 'N', 'N', 11, 10, 10, 1, 1, E::blocked},
        {&orv::kGemmPathAvx512, 'N', 'N', 10, 10, 10, 1, 0, E::blocked},
        {&orv::kGemmPathAvx512, 'N', 'N', 9, 9, 9, 1, 0, E::blocked},
        {&orv::kGemmPathAvx512, 'N', 'N', 5, 5, 0, 1, 1, E::scaled},
        {&orv::kGemmPathAvx512, 'T', 'N', 7, 1000, 1000, 1, 1, E::thin},
        {&orv::kGemmPathAvx512Qix, 'N', 'N', 10, 10, 10, 1, 1, E::blocked},
        {&orv::kGemmPathAvx512Qix, 'N', 'N', 1, 1, 1, 1, 1, E::thin},
        {&orv::kGemmPathAvx512Qix, 'T', 'N', 7, 1000, 1000, 1, 1, E::thin},
        {&orv::kGemmPathAvx512Qix, 'N', 'N', 5, 5, 5, 0, 0, E::scaled},
        {&orv::kGemmPathMc3, 'N', 'N', 10, 10, 10, 1, 1, E::tiny},
        {&orv::kGemmPathMc3, 'T', 'N', 7, 1000, 1000, 1, 1, E::blocked},  // no thin road
        {&orv::kGemmPathMc, 'N', 'N', 1000, 3, 1000, 1, 1, E::blocked},
        {&orv::kGemmPathMc, 'N', 'N', 9, 9, 9, 1, 0, E::blocked},
        // The baseline routine: unpacked below 10000 multiply-adds.
        {&orv::kGemmPathDef, 'N', 'N', 21, 21, 21, 1, 1, E::thin},
        {&orv::kGemmPathDef, 'N', 'N', 22, 22, 22, 1, 1, E::blocked},
        {&orv::kGemmPathDef, 'N', 'N', 100000, 100000, 1, 1, 1, E::blocked},
        {&orv::kGemmPathDef, 'N', 'N', 5, 5, 0, 1, 0, E::scaled},
        {&orv::kGemmPathDef, 'N', 'N', 0, 5, 5, 1, 0, E::none},
    };
    for (const auto& t : cases) {
        const orv::GemmShape shape{t.ta, t.tb, t.m, t.n, t.k, t.alpha, t.beta};
        EXPECT_EQ(orv::choose_gemm_road(*t.path, shape), t.road)
            << t.path->name << " " << t.ta << t.tb << " m=" << t.m << " n=" << t.n << " k=" << t.k
            << " alpha=" << t.alpha << " beta=" << t.beta;
    }
}

// Each member takes the road the routing names, and computes the product on it.
TEST(GemmRouting, MembersTakeTheirRoad)
{
    const struct {
        char ta, tb;
        i64 m, n, k;
        double alpha, beta;
    } shapes[] = {
        {'N', 'N', 9, 9, 9, 0.5, 0},  {'N', 'N', 10, 10, 10, 1, 1}, {'T', 'N', 10, 10, 10, 0, 1},
        {'N', 'T', 30, 30, 6, -2, 1}, {'T', 'N', 7, 300, 200, 1, 1}, {'n', 't', 200, 3, 150, 1, 0.5},
        {'C', 'c', 50, 37, 70, 0.5, 0}, {'N', 'N', 25, 25, 25, 0, 0.5},
    };
    for (const auto& member : kMembers) {
        if (!processor_runs(*member.path)) continue;
        for (const auto& s : shapes) {
            Product p(s.ta, s.tb, s.m, s.n, s.k, s.alpha, s.beta, std::uint64_t(s.m * 31 + s.n));
            const char ta = static_cast<char>(std::toupper(s.ta)), tb = static_cast<char>(std::toupper(s.tb));
            const GemmEvent road = orv::choose_gemm_road(*member.path, {ta, tb, s.m, s.n, s.k, s.alpha, s.beta});
            Observe observe(false);
            member.member(&s.ta, &s.tb, &p.m, &p.n, &p.k, &p.alpha, p.a.data(), &p.lda, p.b.data(), &p.ldb,
                          &p.beta, p.c.data(), &p.ldc);
            EXPECT_EQ(last_road(), road) << member.path->name << " " << p.describe();
            EXPECT_TRUE(p.matches()) << member.path->name << " " << p.describe();
        }
    }
}

// ---- Packing ---------------------------------------------------------------

// Where element (r, l) of a block lies once packed, for panels of `widths`.
i64 packed_index(const std::vector<i64>& widths, i64 depth, i64 r, i64 l)
{
    i64 start = 0;
    for (i64 w : widths) {
        if (r < start + w) return start * depth + l * w + (r - start);
        start += w;
    }
    return -1;
}

// Both orientations of A and B, from a sub-block view, against the layout.
TEST(GemmPack, PanelsHoldTheBlockInKernelOrder)
{
    const double alpha = -2.0;  // exact: the packed value is exactly alpha times the source
    for (const bool transposed : {false, true})
        for (const i64 full : {1, 4, 6, 8, 12, 16, 24, 28})
            for (const i64 count : {0, 1, 3, 11, 13, 31})
                for (const i64 depth : {1, 2, 5, 30}) {
                    // Source op(X) of 40 x 40 values v(i, j) = 64 i + j, viewed from (2, 3).
                    const i64 ld = 45;
                    std::vector<double> x(std::size_t(ld * 45), NAN);
                    for (i64 i = 0; i < 40; ++i)
                        for (i64 j = 0; j < 40; ++j)
                            x[std::size_t(transposed ? j + i * ld : i + j * ld)] = double(64 * i + j);
                    const int kind = transposed ? orv::kStoredTransposed : orv::kStoredAsIs;
                    const i64 corner = transposed ? 3 + 2 * ld : 2 + 3 * ld;
                    const auto view = orv::describe_operand(kind, x.data() + corner, 38, 37, ld);
                    std::vector<i64> widths;
                    for (i64 done = 0; done < count; done += widths.back())
                        widths.push_back(orv::next_panel_width(count - done, full));
                    const std::string what = std::string(transposed ? "transposed" : "plain") + " full=" +
                                             std::to_string(full) + " count=" + std::to_string(count) +
                                             " depth=" + std::to_string(depth);

                    // A: rows [1, 1 + count) x columns [4, 4 + depth) of the view.
                    std::vector<double> packed(std::size_t(count * depth + 8), 12345.0);
                    orv::pack_a<double>(&view, 1, count, 4, depth, alpha, full, packed.data());
                    for (i64 r = 0; r < count; ++r)
                        for (i64 l = 0; l < depth; ++l)
                            ASSERT_EQ(packed[std::size_t(packed_index(widths, depth, r, l))],
                                      alpha * double(64 * (3 + r) + (7 + l)))
                                << "A " << what << " r=" << r << " l=" << l;
                    for (std::size_t i = std::size_t(count * depth); i < packed.size(); ++i)
                        ASSERT_EQ(packed[i], 12345.0) << "A " << what << ": written past the block";

                    // B: rows [4, 4 + depth) x columns [1, 1 + count) of the view, times
                    // the factor, each value once or twice in a row.
                    for (const i64 copies : {1, 2}) {
                        packed.assign(std::size_t(2 * count * depth + 8), 12345.0);
                        const auto packer = copies == 1 ? orv::pack_b<double> : orv::pack_b_doubled<double>;
                        packer(&view, 4, depth, 1, count, -2.0, full, packed.data());
                        for (i64 c = 0; c < count; ++c)
                            for (i64 l = 0; l < depth; ++l)
                                for (i64 q = 0; q < copies; ++q)
                                    ASSERT_EQ(packed[std::size_t(copies * packed_index(widths, depth, c, l) + q)],
                                              -2.0 * double(64 * (6 + l) + (4 + c)))
                                        << "B " << what << " copies=" << copies << " c=" << c << " l=" << l;
                        for (std::size_t i = std::size_t(copies * count * depth); i < packed.size(); ++i)
                            ASSERT_EQ(packed[i], 12345.0) << "B " << what << ": written past the block";
                    }
                }
}

// Every shape of operand, as A (rows of op(X) in panels) and as B (columns
// in panels, once and twice per value), complex: each packed value against
// op(X) built from the definition of the shape. The block starts off the
// diagonal and crosses it, so that panels before, on and past it are packed.
TEST(GemmPack, ShapedOperandsHoldTheirMatrix)
{
    using Z = orv::dcomplex;
    constexpr i64 order = 40, ld = 43;
    Rng rng(11);
    std::vector<Z> x(std::size_t(ld * order));
    for (Z& v : x) v = {rng.full(), rng.full()};
    const auto stored = [&](i64 i, i64 j) { return x[std::size_t(i + j * ld)]; };
    const auto conj = [](Z v) { return Z{v.re, -v.im}; };

    const int letters[] = {orv::kStoredAsIs, orv::kStoredTransposed, orv::kStoredConjugated};
    std::vector<int> kinds;
    for (const int uplo : {orv::kUpperStored, orv::kLowerStored}) {
        kinds.push_back(orv::kStoredAsIs | orv::kSymmetric | uplo);
        kinds.push_back(orv::kStoredAsIs | orv::kHermitian | uplo);
        for (const int letter : letters)
            for (const int diag : {orv::kNonUnitDiagonal, orv::kUnitDiagonal})
                kinds.push_back(letter | uplo | diag);
    }
    for (const int kind : kinds) {
        // op(X)(i, j) from the definition of the shape.
        const auto expected = [&](i64 i, i64 j) -> Z {
            const bool upper = kind & orv::kUpperStored;
            if (kind & (orv::kSymmetric | orv::kHermitian)) {
                const bool herm = kind & orv::kHermitian;
                if (i == j) return herm ? Z{stored(i, i).re, 0.0} : stored(i, i);
                if (upper ? i < j : i > j) return stored(i, j);
                return herm ? conj(stored(j, i)) : stored(j, i);
            }
            const bool trans = !(kind & orv::kStoredAsIs), cj = kind & orv::kStoredConjugated;
            const i64 r = trans ? j : i, c = trans ? i : j;
            const Z v = cj ? conj(stored(r, c)) : stored(r, c);
            if (r == c) {
                return (kind & orv::kUnitDiagonal) ? Z{1.0, 0.0} : v;
            }
            return (upper ? r < c : r > c) ? v : Z{};
        };
        const auto view = orv::describe_operand(kind, x.data(), order, order, ld);
        const i64 first = 3, count = 29, l0 = 7, depth = 25;  // rows (columns) 3..31 against steps 7..31
        for (const i64 full : {4, 6, 12}) {
            std::vector<i64> widths;
            for (i64 done = 0; done < count; done += widths.back())
                widths.push_back(orv::next_panel_width(count - done, full));
            std::vector<Z> packed(std::size_t(2 * count * depth));
            orv::pack_a<Z>(&view, first, count, l0, depth, Z{1.0, 0.0}, full, packed.data());
            for (i64 r = 0; r < count; ++r)
                for (i64 l = 0; l < depth; ++l) {
                    const Z got = packed[std::size_t(packed_index(widths, depth, r, l))];
                    const Z want = expected(first + r, l0 + l);
                    ASSERT_TRUE(got.re == want.re && got.im == want.im)
                        << "A kind " << kind << " full " << full << " (" << first + r << "," << l0 + l << ")";
                }
            for (const i64 copies : {1, 2}) {
                (copies == 1 ? orv::pack_b<Z> : orv::pack_b_doubled<Z>)(&view, l0, depth, first, count,
                                                                        Z{1.0, 0.0}, full, packed.data());
                const double* d = reinterpret_cast<const double*>(packed.data());
                for (i64 c = 0; c < count; ++c)
                    for (i64 l = 0; l < depth; ++l) {
                        const Z want = expected(l0 + l, first + c);
                        const i64 at = 2 * copies * packed_index(widths, depth, c, l);
                        for (i64 q = 0; q < copies; ++q)
                            ASSERT_TRUE(d[at + q] == want.re && d[at + copies + q] == want.im)
                                << "B kind " << kind << " copies " << copies << " (" << l0 + l << "," << first + c
                                << ")";
                    }
            }
        }
    }
}

// ---- The blocked driver ----------------------------------------------------

// Every tile of every path this processor runs, in its own blocks and in
// blocks small enough that every edge is crossed; beta 0 runs the store
// kernels on the first k-block (C holds NaN and infinity that must vanish).
TEST(GemmDriver, EveryTileComputesTheProduct)
{
    const struct {
        char ta, tb;
        i64 m, n, k;
        double alpha, beta;
    } shapes[] = {
        {'N', 'N', 1, 1, 1, 1, 0},       {'N', 'N', 13, 5, 3, 0.5, 1},     {'T', 'N', 11, 7, 9, -2, 0},
        {'N', 'T', 37, 29, 50, 1, 0.5},  {'T', 'T', 61, 30, 40, 0.5, 0},   {'N', 'N', 100, 61, 300, 1, 0},
        {'C', 'N', 25, 33, 130, 1, -1},  {'N', 'N', 30, 20, 0, 1, 0.5},    {'N', 'N', 30, 20, 10, 0, 0},
    };
    for (const auto& [path, member] : kMembers) {
        if (!processor_runs(*path)) continue;
        for (const int tile_mode : {0, orv::kTileModeAlternative})
            for (const bool small_blocks : {false, true})
                for (const auto& s : shapes) {
                    Product p(s.ta, s.tb, s.m, s.n, s.k, s.alpha, s.beta, std::uint64_t(s.m + 7 * s.k));
                    run_driver(*path, tile_mode, p, small_blocks);
                    EXPECT_TRUE(p.matches()) << path->name << (tile_mode ? " alternative tile" : "")
                                             << (small_blocks ? " small blocks " : " ") << p.describe();
                }
    }
}

// Values that use all 53 bits, for products whose roads must agree bit for
// bit: another order of the sums or another rounding would show.
Product full_product(char ta, char tb, i64 m, i64 n, i64 k, double alpha, double beta, std::uint64_t seed)
{
    Product p(ta, tb, m, n, k, alpha, beta, seed);
    Rng rng(seed + 1);
    for (double& x : p.a) x = rng.full();
    for (double& x : p.b) x = rng.full();
    if (beta != 0.0)
        for (double& x : p.c) x = rng.full();
    return p;
}

::testing::AssertionResult same_c(const Product& got, const Product& want)
{
    for (std::size_t i = 0; i < got.c.size(); ++i)
        if (!orvtest::same_bits(got.c[i], want.c[i]))
            return ::testing::AssertionFailure() << "element " << i << " (row " << i % got.ldc << ", column "
                                                 << i / got.ldc << ") is " << got.c[i] << ", want " << want.c[i];
    return ::testing::AssertionSuccess();
}

const struct {
    char ta, tb;
    i64 m, n, k;
    double alpha, beta;
} kFullShapes[] = {
    {'N', 'N', 40, 30, 300, 0.3, 1},  {'T', 'T', 50, 37, 441, -1, 0.5}, {'N', 'T', 61, 29, 100, 1, 0},
    {'T', 'N', 33, 45, 257, 0.3, -1}, {'C', 'N', 25, 9, 577, 1, 1},     {'N', 'C', 45, 28, 31, -1, 0},
};

// The blocked road's elements do not depend on its register tile: the
// default and the alternative tile give the same bits.
TEST(GemmDriver, BothTilesGiveTheSameBits)
{
    for (const auto& [path, member] : kMembers) {
        if (!processor_runs(*path)) continue;
        for (const auto& s : kFullShapes) {
            Product standard = full_product(s.ta, s.tb, s.m, s.n, s.k, s.alpha, s.beta, std::uint64_t(s.m * s.k));
            Product alternative = standard;
            run_driver(*path, 0, standard, false);
            run_driver(*path, orv::kTileModeAlternative, alternative, false);
            EXPECT_TRUE(same_c(alternative, standard)) << path->name << " " << standard.describe();
        }
    }
}

// Without a buffer the path's member still computes the whole product,
// unpacked, and every element gets the bits the blocked road gives it.
TEST(GemmDriver, FallsBackWithoutABuffer)
{
    const auto call = [](DgemmRoutine routine, Product& p) {
        routine(&p.ta, &p.tb, &p.m, &p.n, &p.k, &p.alpha, p.a.data(), &p.lda, p.b.data(), &p.ldb, &p.beta,
                p.c.data(), &p.ldc);
    };
    for (const auto& [path, member] : kMembers) {
        if (!processor_runs(*path)) continue;
        for (const auto& s : kFullShapes) {
            const Product base = full_product(s.ta, s.tb, s.m, s.n, s.k, s.alpha, s.beta, std::uint64_t(s.n + s.k));
            const std::string what = std::string(path->name) + " " + base.describe();
            Product blocked = base, member_blocked = base, member_refused = base;
            {
                Observe observe(false);
                run_driver(*path, 0, blocked, false);
                EXPECT_EQ(last_road(), GemmEvent::blocked) << what;
                call(member, member_blocked);
                EXPECT_EQ(last_road(), GemmEvent::blocked) << what;
            }
            {
                Observe observe(true);
                call(member, member_refused);
                EXPECT_EQ(last_road(), GemmEvent::fallback) << what;
            }
            EXPECT_TRUE(same_c(member_blocked, blocked)) << "member " << what;
            EXPECT_TRUE(same_c(member_refused, blocked)) << "member's fall-back " << what;
        }
    }
    // Coarse values: the fall-back computes the exact product.
    Product p('T', 'N', 40, 30, 300, 0.5, 0.5, 99);
    Observe observe(true);
    call(orv::dgemm_member<orv::kGemmPathDef>, p);
    EXPECT_EQ(last_road(), GemmEvent::fallback);
    EXPECT_TRUE(p.matches()) << "member fall-back " << p.describe();
}

// The complex product without a buffer reads A and B in place and gives
// every element the bits of its blocked road.
TEST(GemmDriver, ComplexFallsBackWithTheSameBits)
{
    using Z = orv::dcomplex;
    const i64 m = 37, n = 29, k = 300, lda = 310, ldb = 301, ldc = 40;
    Rng rng(7);
    std::vector<Z> a(std::size_t(lda * 300)), b(std::size_t(ldb * 300)), c0(std::size_t(ldc * n));
    for (Z& x : a) x = {rng.full(), rng.full()};
    for (Z& x : b) x = {rng.full(), rng.full()};
    for (Z& x : c0) x = {rng.full(), rng.full()};
    const Z alpha{0.3, -0.7}, beta{-1.0, 0.25};
    for (const char* letters : {"NN", "CT", "TC"})
        for (const GemmPath* path : {&orv::kGemmPathAvx512, &orv::kGemmPathAvx512Qix, &orv::kGemmPathAvx2,
                                     &orv::kGemmPathAvx, &orv::kGemmPathMc3, &orv::kGemmPathMc,
                                     &orv::kGemmPathDef}) {
            if (!processor_runs(*path)) continue;
            std::vector<Z> blocked = c0, refused = c0;
            for (std::vector<Z>* c : {&blocked, &refused}) {
                Observe observe(c == &refused);
                orv::routed_zgemm(*path, letters, letters + 1, &m, &n, &k, &alpha, a.data(), &lda, b.data(), &ldb,
                                  &beta, c->data(), &ldc);
                EXPECT_EQ(last_road(), c == &refused ? GemmEvent::fallback : GemmEvent::blocked) << path->name;
            }
            for (std::size_t i = 0; i < blocked.size(); ++i)
                ASSERT_TRUE(std::memcmp(&blocked[i], &refused[i], sizeof(Z)) == 0)
                    << path->name << " " << letters << " element " << i;
        }
}

// Without a work buffer the shaped routines run their packers and block
// routines one tile at a time from the stack: the same product, cut
// differently, so equal to rounding. Real and complex, each side and
// triangle of the operands at least once.
template <class T>
struct ShapedCall {
    const char* name;
    void (*call)(const GemmPath&, const T* a, const T* other, T* c);
};

template <class T>
void check_without_buffer(const std::vector<ShapedCall<T>>& routines, std::uint64_t seed)
{
    constexpr i64 ld = 50;
    Rng rng(seed);
    std::vector<T> a(std::size_t(ld * ld)), other(std::size_t(ld * ld)), c0(std::size_t(ld * ld));
    // Values of size `scale`, the real part moved by `shift`.
    const auto value = [&](double scale, double shift) {
        if constexpr (std::is_same_v<T, double>) return shift + scale * rng.full();
        else return T{shift + scale * rng.full(), scale * rng.full()};
    };
    for (T& v : a) v = value(1.0 / 16, 0.0);
    for (i64 i = 0; i < ld; ++i) a[std::size_t(i + i * ld)] = value(1.0, 2.0);  // well away from zero: solves stay tame
    for (T& v : other) v = value(1.0, 0.0);
    for (T& v : c0) v = value(1.0, 0.0);
    const auto distance = [](T x, T y) {
        if constexpr (std::is_same_v<T, double>) return std::fabs(x - y);
        else return std::fabs(x.re - y.re) + std::fabs(x.im - y.im);
    };
    for (const GemmPath* path : {&orv::kGemmPathAvx512, &orv::kGemmPathAvx512Qix, &orv::kGemmPathAvx2,
                                 &orv::kGemmPathAvx, &orv::kGemmPathMc3, &orv::kGemmPathMc, &orv::kGemmPathDef}) {
        if (!processor_runs(*path)) continue;
        for (const auto& routine : routines) {
            std::vector<T> blocked = c0, refused = c0;
            for (std::vector<T>* c : {&blocked, &refused}) {
                Observe observe(c == &refused);
                routine.call(*path, a.data(), other.data(), c->data());
                EXPECT_EQ(last_road(), c == &refused ? GemmEvent::fallback : GemmEvent::blocked)
                    << path->name << " " << routine.name;
            }
            double worst = 0;
            for (std::size_t i = 0; i < blocked.size(); ++i) worst = std::max(worst, distance(blocked[i], refused[i]));
            EXPECT_LT(worst, 1e-12) << path->name << " " << routine.name;
        }
    }
}

constexpr i64 kM = 45, kN = 38, kLd = 50;

TEST(GemmDriver, ShapedRoutinesWithoutABuffer)
{
    using Z = orv::dcomplex;
    static const double alpha = 0.5, beta = -1.0;
    static const Z zalpha{0.5, -0.25}, zbeta{-1.0, 0.5};
    check_without_buffer<double>(
        {
            {"dsymm L L", [](const GemmPath& p, const double* a, const double* b, double* c) {
                 orv::structured_symm<double, false>(p, "L", "L", &kM, &kN, &alpha, a, &kLd, b, &kLd, &beta, c, &kLd);
             }},
            {"dsyrk U N", [](const GemmPath& p, const double* a, const double*, double* c) {
                 orv::structured_syrk<double, false, double>(p, "U", "N", &kN, &kM, &alpha, a, &kLd, &beta, c, &kLd);
             }},
            {"dsyr2k L T", [](const GemmPath& p, const double* a, const double* b, double* c) {
                 orv::structured_syr2k<double, false, double>(p, "L", "T", &kN, &kM, &alpha, a, &kLd, b, &kLd, &beta,
                                                              c, &kLd);
             }},
            {"dtrmm R L N U", [](const GemmPath& p, const double* a, const double*, double* c) {
                 orv::structured_trmm<double>(p, "R", "L", "N", "U", &kM, &kN, &alpha, a, &kLd, c, &kLd);
             }},
        },
        5);
    check_without_buffer<Z>(
        {
            {"zhemm R U", [](const GemmPath& p, const Z* a, const Z* b, Z* c) {
                 orv::structured_symm<Z, true>(p, "R", "U", &kM, &kN, &zalpha, a, &kLd, b, &kLd, &zbeta, c, &kLd);
             }},
            {"zherk L C", [](const GemmPath& p, const Z* a, const Z*, Z* c) {
                 orv::structured_syrk<Z, true, double>(p, "L", "C", &kN, &kM, &alpha, a, &kLd, &beta, c, &kLd);
             }},
            {"zher2k U N", [](const GemmPath& p, const Z* a, const Z* b, Z* c) {
                 orv::structured_syr2k<Z, true, double>(p, "U", "N", &kN, &kM, &zalpha, a, &kLd, b, &kLd, &beta, c,
                                                        &kLd);
             }},
            {"ztrmm L U C N", [](const GemmPath& p, const Z* a, const Z*, Z* c) {
                 orv::structured_trmm<Z>(p, "L", "U", "C", "N", &kM, &kN, &zalpha, a, &kLd, c, &kLd);
             }},
        },
        6);
}

// The real shaped products up to order 32 write the shaped operand out and
// read it in place; one column (or row and column) more takes the blocked
// road. The elements the two share get the same bits: same values, same
// order of the sums over k.
constexpr i64 kSmall = 32, kLarge = kSmall + 1, kSmallLd = kLarge + 2;

TEST(GemmDriver, SmallShapedRoadGivesTheBlockedBits)
{
    constexpr i64 ld = kSmallLd;
    static const double alpha = -0.75, beta = 0.5;
    Rng rng(21);
    std::vector<double> a(std::size_t(ld * ld)), other(std::size_t(ld * ld)), c0(std::size_t(ld * ld));
    for (double& v : a) v = rng.full();
    for (double& v : other) v = rng.full();
    for (double& v : c0) v = rng.full();
    // Each call computes a problem of size `size` (the other sizes kSmall)
    // into c; the leading kSmall x kSmall of C are compared.
    const struct {
        const char* name;
        void (*call)(const GemmPath&, i64 size, const double* a, const double* b, double* c);
    } cases[] = {
        {"dsymm L U", [](const GemmPath& p, i64 n, const double* a, const double* b, double* c) {
             orv::structured_symm<double, false>(p, "L", "U", &kSmall, &n, &alpha, a, &kSmallLd, b, &kSmallLd,
                                                 &beta, c, &kSmallLd);
         }},
        {"dsymm R L", [](const GemmPath& p, i64 m, const double* a, const double* b, double* c) {
             orv::structured_symm<double, false>(p, "R", "L", &m, &kSmall, &alpha, a, &kSmallLd, b, &kSmallLd,
                                                 &beta, c, &kSmallLd);
         }},
        {"dsyrk L T", [](const GemmPath& p, i64 n, const double* a, const double*, double* c) {
             orv::structured_syrk<double, false, double>(p, "L", "T", &n, &kSmall, &alpha, a, &kSmallLd, &beta, c,
                                                         &kSmallLd);
         }},
        {"dsyr2k U N", [](const GemmPath& p, i64 n, const double* a, const double* b, double* c) {
             orv::structured_syr2k<double, false, double>(p, "U", "N", &n, &kSmall, &alpha, a, &kSmallLd, b,
                                                          &kSmallLd, &beta, c, &kSmallLd);
         }},
        {"dtrmm L L T N", [](const GemmPath& p, i64 n, const double* a, const double*, double* c) {
             orv::structured_trmm<double>(p, "L", "L", "T", "N", &kSmall, &n, &alpha, a, &kSmallLd, c, &kSmallLd);
         }},
        {"dtrmm R U N U", [](const GemmPath& p, i64 m, const double* a, const double*, double* c) {
             orv::structured_trmm<double>(p, "R", "U", "N", "U", &m, &kSmall, &alpha, a, &kSmallLd, c, &kSmallLd);
         }},
    };
    for (const GemmPath* path : {&orv::kGemmPathAvx512, &orv::kGemmPathAvx512Qix, &orv::kGemmPathAvx2,
                                 &orv::kGemmPathAvx, &orv::kGemmPathMc3, &orv::kGemmPathMc, &orv::kGemmPathDef}) {
        if (!processor_runs(*path)) continue;
        for (const auto& t : cases) {
            std::vector<double> small = c0, large = c0;
            t.call(*path, kSmall, a.data(), other.data(), small.data());
            t.call(*path, kLarge, a.data(), other.data(), large.data());
            for (i64 j = 0; j < kSmall; ++j)
                for (i64 i = 0; i < kSmall; ++i)
                    ASSERT_TRUE(orvtest::same_bits(small[std::size_t(i + j * ld)], large[std::size_t(i + j * ld)]))
                        << path->name << " " << t.name << " (" << i << "," << j << ")";
        }
    }
}

// ---- The triangular solve ----------------------------------------------------

template <class T>
using TrsmMember = void (*)(const char*, const char*, const char*, const char*, const i64*, const i64*, const T*,
                            const T*, const i64*, T*, const i64*);
struct SolverEntry {
    const GemmPath* path;
    TrsmMember<double> real;
    TrsmMember<orv::dcomplex> complex;
    const orv::TrsmKernels* kernels;
    template <class T>
    TrsmMember<T> member() const
    {
        if constexpr (std::is_same_v<T, double>) return real;
        else return complex;
    }
};
template <const GemmPath& Path, const orv::TrsmKernels& Kernels>
SolverEntry solver()
{
    return {&Path, orv::dtrsm_member<Path, Kernels>, orv::ztrsm_member<Path, Kernels>, &Kernels};
}
const SolverEntry kSolvers[] = {
    solver<orv::kGemmPathAvx512, orv::avx512::kTrsmKernels>(),
    solver<orv::kGemmPathAvx512Qix, orv::avx512_qix::kTrsmKernels>(),
    solver<orv::kGemmPathAvx2, orv::avx2::kTrsmKernels>(),
    solver<orv::kGemmPathAvx, orv::avx::kTrsmKernels>(),
    solver<orv::kGemmPathMc3, orv::mc3::kTrsmKernels>(),
    solver<orv::kGemmPathMc, orv::mc::kTrsmKernels>(),
    solver<orv::kGemmPathDef, orv::def::kTrsmKernels>(),
};

// A solve of order `order` with a well-conditioned triangle (the other one
// NaN, never read) and B with a spare row around it.
template <class T>
struct Solve {
    char side, uplo, transa, diag;
    i64 m, n, lda, ldb;
    T alpha;
    std::vector<T> a, b;
    Solve(char side_, char uplo_, char transa_, char diag_, i64 order, i64 other, double alpha_)
        : side(side_), uplo(uplo_), transa(transa_), diag(diag_), alpha(element(alpha_, 0))
    {
        Rng rng(std::uint64_t(order * 7 + other));
        const bool left = side == 'L';
        m = left ? order : other;
        n = left ? other : order;
        lda = order + 2;
        ldb = m + 1;
        a.assign(std::size_t(lda * order), element(NAN, NAN));
        for (i64 j = 0; j < order; ++j)
            for (i64 i = 0; i < order; ++i)
                if (uplo == 'U' ? i <= j : i >= j)
                    a[std::size_t(i + j * lda)] =
                        element(i == j ? 4 + rng.coarse() : rng.coarse(), i == j ? 1 + rng.coarse() : rng.coarse());
        b.resize(std::size_t(ldb * n));
        for (T& x : b) x = element(rng.coarse(), rng.coarse());
    }
    static T element(double re, double im)
    {
        if constexpr (std::is_same_v<T, double>) return re;
        else return T{re, im};
    }
    void run(TrsmMember<T> member)
    {
        member(&side, &uplo, &transa, &diag, &m, &n, &alpha, a.data(), &lda, b.data(), &ldb);
    }
    // The solve of the plain loops (the complex ones divide), or of the
    // path's direct kernel, on a copy of B.
    std::vector<T> plain(const SolverEntry& solver) const
    {
        std::vector<T> x = b;
        if constexpr (std::is_same_v<T, double>) {
            solver.kernels->direct(side == 'L', uplo == 'U', transa != 'N', diag == 'U', m, n, a.data(), lda,
                                   x.data(), ldb);
        } else {
            const T one{1.0, 0.0};
            orv::plain::ztrsm(&side, &uplo, &transa, &diag, &m, &n, &one, a.data(), &lda, x.data(), &ldb);
        }
        return x;
    }
    std::string describe() const
    {
        return std::string(1, side) + uplo + transa + diag + " m=" + std::to_string(m) + " n=" + std::to_string(n);
    }
};

double distance(double x, double y) { return std::fabs(x - y); }
double distance(orv::dcomplex x, orv::dcomplex y) { return std::fabs(x.re - y.re) + std::fabs(x.im - y.im); }
double size_of(double x) { return std::fabs(x); }
double size_of(orv::dcomplex x) { return std::fabs(x.re) + std::fabs(x.im); }
template <class T>
bool identical(T x, T y)
{
    return std::memcmp(&x, &y, sizeof x) == 0;
}

// Without a buffer the blocked road gives the bits of the plain solve (the
// real solve's direct kernel, the complex loops).
template <class T>
void check_solve_without_buffer(const SolverEntry& solver)
{
    for (const char side : {'L', 'R'})
        for (const char uplo : {'U', 'L'}) {
            Solve<T> s(side, uplo, 'N', 'N', 90, 7, 1.0);
            const std::vector<T> want = s.plain(solver);
            Observe observe(true);
            s.run(solver.member<T>());
            EXPECT_EQ(last_road(), GemmEvent::fallback) << solver.path->name << " " << s.describe();
            for (std::size_t i = 0; i < want.size(); ++i)
                ASSERT_TRUE(identical(s.b[i], want[i])) << solver.path->name << " " << s.describe() << " element " << i;
        }
}

// The real solve takes the direct kernel up to order 12 and at multiples of
// 4 up to 88, the complex one the blocked road at every order; alpha 0
// clears B without reading A.
TEST(TrsmRoad, OrderPicksTheRoadAndAMissingBufferFallsBack)
{
    for (const auto& solver : kSolvers) {
        if (!processor_runs(*solver.path)) continue;
        for (const char side : {'L', 'R'})
            for (const i64 order : {1, 12, 13, 88, 89, 90}) {
                Solve<double> s(side, 'U', 'T', 'N', order, 9, 1.0);
                Observe observe(false);
                s.run(solver.real);
                EXPECT_EQ(last_road(), orv::trsm_direct_order(order) ? GemmEvent::direct : GemmEvent::blocked)
                    << solver.path->name << " " << s.describe();
                Solve<orv::dcomplex> z(side, 'U', 'C', 'N', order, 9, 1.0);
                z.run(solver.complex);
                EXPECT_EQ(last_road(), GemmEvent::blocked) << solver.path->name << " " << z.describe();
            }
        check_solve_without_buffer<double>(solver);
        check_solve_without_buffer<orv::dcomplex>(solver);
        Solve<double> s('R', 'L', 'T', 'U', 90, 7, 0.0);
        std::fill(s.a.begin(), s.a.end(), NAN);
        const std::vector<double> before = s.b;
        Observe observe(false);
        s.run(solver.real);
        EXPECT_EQ(last_road(), GemmEvent::scaled) << solver.path->name;
        for (std::size_t i = 0; i < s.b.size(); ++i) {
            const bool in_b = i64(i) % s.ldb < s.m;  // the spare row keeps its value
            ASSERT_TRUE(orvtest::same_bits(s.b[i], in_b ? 0.0 : before[i])) << solver.path->name << " element " << i;
        }
    }
}

// The four blocked drivers with blocks of a few tiles, so that small solves
// cross many diagonal blocks, row blocks and column slices, and every chunk
// width of the diagonal-block kernels; compared with the plain solve.
template <class T>
void check_small_blocks(const SolverEntry& solver)
{
    const char transposes[] = {'N', 'T', std::is_same_v<T, double> ? 'T' : 'C'};
    for (const char side : {'L', 'R'})
        for (const char uplo : {'U', 'L'})
            for (const char transa : transposes)
                for (const char diag : {'N', 'U'}) {
                    Solve<T> s(side, uplo, transa, diag, 61, 29, 1.0);
                    const std::vector<T> want = s.plain(solver);
                    const orv::TrsmCall<T> call = {side == 'L', uplo == 'U', transa != 'N', diag == 'U', &s.transa,
                                                   s.m, s.n, s.a.data(), s.lda, s.b.data(), s.ldb};
                    orv::TrsmPlan<T> plan;
                    orv::plan_trsm(*solver.path, *solver.kernels, call, &plan);
                    orv::BlockPlan blocks;
                    orv::trsm_blocks(call, plan, &blocks);
                    blocks.mc = 2 * plan.params.mr;
                    blocks.nc = 2 * plan.params.nr;
                    blocks.kc = 16;
                    blocks.depth_capacity = 18;
                    blocks.a.rows = blocks.mc + blocks.depth_capacity * plan.triangle_copies;
                    blocks.a.cols = blocks.depth_capacity;
                    blocks.b.rows = blocks.depth_capacity;
                    blocks.b.cols = blocks.nc * plan.params.b_copies;
                    orv::acquire_buffer(&blocks);
                    ASSERT_NE(blocks.buffer, nullptr);
                    plan.driver(call, plan, blocks);
                    orv::release_buffer(&blocks);
                    for (std::size_t i = 0; i < want.size(); ++i)
                        ASSERT_LE(distance(s.b[i], want[i]), 1e-12 * (1 + size_of(want[i])))
                            << solver.path->name << " " << s.describe() << " element " << i;
                }
}

TEST(TrsmDriver, SmallBlocksGiveTheSolve)
{
    for (const auto& solver : kSolvers) {
        if (!processor_runs(*solver.path)) continue;
        check_small_blocks<double>(solver);
        check_small_blocks<orv::dcomplex>(solver);
    }
}

}  // namespace
