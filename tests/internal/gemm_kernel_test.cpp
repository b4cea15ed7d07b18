// Inner kernels of the blocked real product, for every code path's tiles:
// packed A times packed B added to or stored into a block of C, over every
// panel remainder, depths on both sides of the unrolled loop's split, and
// guard values around and inside the leading dimension of C.
#include <gtest/gtest.h>

#include <cmath>
#include <ostream>
#include <string>
#include <vector>

#include "level3/kernels/gemm_kernel.h"
#include "orv_test.h"

namespace {

using orv::GemmTile;
using orv::i64;
using orvtest::Guarded;
using orvtest::Rng;

struct PathTile {
    const char* name;
    const GemmTile* tile;
    bool (*supported)();
};
void PrintTo(const PathTile& tile, std::ostream* os) { *os << tile.name; }

bool has_avx512()
{
    return __builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512dq") &&
           __builtin_cpu_supports("avx512bw") && __builtin_cpu_supports("avx512vl");
}
bool has_avx512f() { return __builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512cd"); }
bool has_avx2() { return __builtin_cpu_supports("avx2") && __builtin_cpu_supports("fma"); }
bool has_avx() { return __builtin_cpu_supports("avx"); }
bool has_sse42() { return __builtin_cpu_supports("sse4.2"); }
bool has_ssse3() { return __builtin_cpu_supports("ssse3"); }
bool always() { return true; }

int power_of_two_below(int n)
{
    int p = 1;
    while (2 * p < n) p *= 2;
    return n > 1 ? p : 0;
}

// The panel heights in packed order: full panels of `full`, then the binary
// digits of the remainder, widest first.
std::vector<int> panel_sizes(int count, int full)
{
    std::vector<int> sizes;
    for (; count >= full; count -= full) sizes.push_back(full);
    for (int p = power_of_two_below(full); p >= 1; p /= 2)
        if (count & p) sizes.push_back(p);
    return sizes;
}

// Packed copies in guarded buffers: a kernel that reads past its panels meets
// the guard NaN and spoils its result.
Guarded<double> pack_a(const std::vector<double>& a, int m, int k, int mr)
{
    Guarded<double> packed(static_cast<std::size_t>(m) * k);
    std::size_t at = 0;
    int row = 0;
    for (const int h : panel_sizes(m, mr)) {
        for (int l = 0; l < k; ++l)
            for (int r = 0; r < h; ++r) packed[at++] = a[(row + r) + static_cast<std::size_t>(l) * m];
        row += h;
    }
    return packed;
}

Guarded<double> pack_b(const std::vector<double>& b, int k, int n, int nr, int copies)
{
    Guarded<double> packed(static_cast<std::size_t>(k) * n * copies);
    std::size_t at = 0;
    int col = 0;
    for (const int w : panel_sizes(n, nr)) {
        for (int l = 0; l < k; ++l)
            for (int c = 0; c < w; ++c)
                for (int q = 0; q < copies; ++q) packed[at++] = b[l + static_cast<std::size_t>(col + c) * k];
        col += w;
    }
    return packed;
}

// One product of an m x k by a k x n matrix into C with a leading dimension
// beyond m. Coarse values keep every sum exact, whatever the order or the
// fusing of the kernel, so results are compared bit for bit; NaNs seeded in C
// must vanish under the store kernel and survive accumulation.
::testing::AssertionResult check_product(const GemmTile& tile, bool store, int m, int n, int k, Rng& rng)
{
    std::vector<double> a(static_cast<std::size_t>(m) * k), b(static_cast<std::size_t>(k) * n);
    for (auto& v : a) v = rng.coarse();
    for (auto& v : b) v = rng.coarse();
    const Guarded<double> pa = pack_a(a, m, k, tile.mr);
    const Guarded<double> pb = pack_b(b, k, n, tile.nr, tile.b_copies);

    const i64 ldc = m + 3;
    Guarded<double> c(static_cast<std::size_t>(ldc) * (n > 0 ? n : 1));
    for (int j = 0; j < n; ++j)
        for (int i = 0; i < m; ++i) c[i + j * ldc] = (i + 2 * j) % 7 == 3 ? std::nan("") : rng.coarse();
    const std::vector<double> before(c.data(), c.data() + c.size());

    const i64 mm = m, nn = n, kk = k;
    (store ? tile.store : tile.accumulate)(&mm, &nn, &kk, pa.data(), pb.data(), c.data(), &ldc);

    if (!c.guards_intact()) return c.guards_intact();
    for (int j = 0; j < n; ++j) {
        for (i64 i = 0; i < ldc; ++i) {
            const double got = c[i + j * ldc];
            if (i >= m) {
                if (!orvtest::same_bits(got, before[i + j * ldc]))
                    return ::testing::AssertionFailure() << "wrote below the block at row " << i << " column " << j;
                continue;
            }
            double sum = 0.0;
            for (int l = 0; l < k; ++l)
                sum = sum + a[i + static_cast<std::size_t>(l) * m] * b[l + static_cast<std::size_t>(j) * k];
            const double want = store ? sum : before[i + j * ldc] + sum;
            if (!(std::isnan(want) ? std::isnan(got) : orvtest::same_bits(got, want)))
                return ::testing::AssertionFailure() << "C(" << i << ", " << j << ") = " << got << ", expected " << want;
        }
    }
    return ::testing::AssertionSuccess();
}

// Every count from 0 to three full panels less one when the tile is small,
// else counts that still give every remainder digit, one and two full panels.
std::vector<int> counts_for(int full)
{
    std::vector<int> counts;
    if (full <= 12) {
        for (int i = 0; i < 3 * full; ++i) counts.push_back(i);
        return counts;
    }
    for (int low = 0; low < full; low = low == 0 ? 1 : 2 * low + 1) {
        counts.push_back(low);           // 0, 1, 3, 7, 15, ...: all digits up to one
        counts.push_back(low + full);
    }
    for (int p = power_of_two_below(full); p >= 1; p /= 2) counts.push_back(full + p);  // each digit alone
    counts.push_back(full - 1);
    counts.push_back(3 * full - 1);
    return counts;
}

class GemmKernelTile : public ::testing::TestWithParam<PathTile> {
protected:
    void SetUp() override
    {
        if (!GetParam().supported()) GTEST_SKIP() << GetParam().name << " needs instructions this processor lacks";
    }
};

TEST_P(GemmKernelTile, ShallowDepthsOverEveryPanelRemainder)
{
    const GemmTile& tile = *GetParam().tile;
    Rng rng(11);
    for (const bool store : {false, true})
        for (const int k : {0, 1, 2, 3, 4, 5})
            for (const int m : counts_for(tile.mr))
                for (const int n : counts_for(tile.nr))
                    ASSERT_TRUE(check_product(tile, store, m, n, k, rng))
                        << (store ? "store" : "accumulate") << " m=" << m << " n=" << n << " k=" << k;
}

// Depths around the point where the full tile stops prefetching and fetches
// its C block again, and a depth with many iterations before it.
TEST_P(GemmKernelTile, DeepPanelsAcrossTheLoopSplit)
{
    const GemmTile& tile = *GetParam().tile;
    const auto shapes = [](int full) {
        // A full panel, one full panel with every remainder digit but the
        // widest, and one with every digit up to the widest.
        const int p = power_of_two_below(full);
        return std::vector<int>{full, full + (p > 0 ? p - 1 : 0), 2 * full - 1};
    };
    Rng rng(12);
    for (const bool store : {false, true})
        for (const int k : {135, 136, 137, 140, 141, 300})
            for (const int m : shapes(tile.mr))
                for (const int n : shapes(tile.nr))
                    ASSERT_TRUE(check_product(tile, store, m, n, k, rng))
                        << (store ? "store" : "accumulate") << " m=" << m << " n=" << n << " k=" << k;
}

const PathTile kTiles[] = {
    {"avx512", &orv::avx512::kGemmTile, has_avx512},
    {"avx512_alt", &orv::avx512::kGemmTileAlt, has_avx512},
    {"avx512_qix", &orv::avx512_qix::kGemmTile, has_avx512f},
    {"avx512_qix_alt", &orv::avx512_qix::kGemmTileAlt, has_avx512f},
    {"avx2", &orv::avx2::kGemmTile, has_avx2},
    {"avx2_alt", &orv::avx2::kGemmTileAlt, has_avx2},
    {"avx", &orv::avx::kGemmTile, has_avx},
    {"mc3", &orv::mc3::kGemmTile, has_sse42},
    {"mc", &orv::mc::kGemmTile, has_ssse3},
    {"def", &orv::def::kGemmTile, always},
};

INSTANTIATE_TEST_SUITE_P(GemmKernel, GemmKernelTile, ::testing::ValuesIn(kTiles),
                         [](const ::testing::TestParamInfo<PathTile>& info) { return std::string(info.param.name); });

}  // namespace
