// dgemm_ across the edges of the register tiles and of the cache blocks of
// every code path (the suite runs once per path), on every road a product can
// take, and with NaN and infinity where they must vanish or propagate.
#include <cmath>

#include "gemm_reference.h"

namespace l3test {
namespace {

// Sizes on both sides of the tile edges of all paths: 4, 8, 12, 24 rows and
// 4, 6, 8, 28 columns, and the remainder panels below them.
const std::vector<int> kTileEdges{0, 1, 2, 3, 4, 5, 7, 8, 9, 11, 12, 13, 16, 17, 23, 24, 25, 27, 28, 29, 31, 33, 40};

const char kLetters[3] = {'N', 'T', 'C'};

// Every pair of letters over m x n of the tile edges; k walks the same list
// so that each size meets several depths.
std::vector<GemmCase<double>> tile_edge_cases()
{
    const auto s = scalars<double>();
    std::vector<GemmCase<double>> out;
    int index = 0;
    const int count = static_cast<int>(kTileEdges.size());
    for (int pair = 0; pair < 9; ++pair)
        for (int mi = 0; mi < count; ++mi)
            for (int ni = 0; ni < count; ++ni) {
                const bool lower = (index / 7) % 2 == 1;
                const char ta = letter(kLetters[pair / 3], lower), tb = letter(kLetters[pair % 3], lower);
                const int k = kTileEdges[(mi * 7 + ni * 3 + pair) % count];
                out.push_back({ta, tb, kTileEdges[mi], kTileEdges[ni], k, s[index % 4], s[(index / 4) % 4],
                               index % 3, Poison::none});
                ++index;
            }
    return out;
}

// Shapes across the k-block edges (128, 256, 384 and the split halves between),
// the column slices (24 for shallow products, 192 and 196 otherwise) and the
// row blocks (5000 and 4992), each with two pairs of letters.
std::vector<GemmCase<double>> block_edge_cases()
{
    const struct {
        int m, n, k;
    } shapes[] = {
        {37, 29, 127}, {37, 29, 128}, {37, 29, 129}, {29, 37, 255}, {29, 37, 256}, {29, 37, 257},
        {20, 30, 383}, {20, 30, 384}, {20, 30, 385}, {50, 25, 47},  {50, 29, 47},  {50, 193, 48},
        {13, 197, 60}, {5001, 5, 7},  {4993, 9, 17}, {16, 20, 1000}, {100, 100, 100},
    };
    const double alphas[] = {1.0, -1.0, 0.3};
    const double betas[] = {0.0, 1.0, -1.0, 0.3};
    std::vector<GemmCase<double>> out;
    int index = 0;
    for (const auto& sh : shapes)
        for (int twice = 0; twice < 2; ++twice) {
            const char ta = letter(kLetters[index % 3], index % 4 == 3);
            const char tb = letter(kLetters[(index / 3) % 3], index % 4 == 3);
            out.push_back({ta, tb, sh.m, sh.n, sh.k, alphas[index % 3], betas[index % 4], index % 3, Poison::none});
            ++index;
        }
    // Alpha 0 on a shape of the blocked road: C is only scaled (or left alone).
    out.push_back({'N', 'T', 100, 100, 100, 0.0, 1.0, 1, Poison::none});
    out.push_back({'T', 'N', 100, 100, 100, 0.0, 0.3, 2, Poison::none});
    return out;
}

TEST(GemmBlocked, TileEdges) { run_table(tile_edge_cases(), run_case<double>); }
TEST(GemmBlocked, BlockEdges) { run_table(block_edge_cases(), run_case<double>); }

// One shape per road: direct (9, 12 with beta 0), tiny, the unpacked thin
// kernel for each form, the blocked driver, the baseline's unpacked product.
struct Road {
    char ta, tb;
    int m, n, k;
};
const Road kRoads[] = {
    {'N', 'N', 3, 3, 3},   {'N', 'N', 9, 9, 9},     {'T', 'N', 12, 12, 12}, {'N', 'T', 10, 10, 10},
    {'T', 'N', 7, 64, 70}, {'N', 'N', 64, 3, 140},  {'T', 'T', 30, 2, 150}, {'N', 'N', 30, 30, 30},
    {'C', 'T', 61, 45, 200},
};

void infinity_and_nan_in_c(Mat<double>&, Mat<double>&, Mat<double>& c, Rng&)
{
    for (int j = 0; j < c.cols; ++j)
        for (int i = 0; i < c.rows; ++i) c.at(i, j) = (i + j) % 2 ? INFINITY : -NAN;
}
void infinity_in_a(Mat<double>& a, Mat<double>&, Mat<double>&, Rng& rng)
{
    a.at(static_cast<int>(rng.bits() % a.rows), static_cast<int>(rng.bits() % a.cols)) = -INFINITY;
}
void infinity_in_b(Mat<double>&, Mat<double>& b, Mat<double>&, Rng& rng)
{
    b.at(static_cast<int>(rng.bits() % b.rows), static_cast<int>(rng.bits() % b.cols)) = INFINITY;
}

// Beta 0 stores without reading C, on every road: NaN and infinity vanish.
TEST(GemmBlocked, ZeroBetaDropsWhatCHeld)
{
    std::vector<GemmCase<double>> cases;
    for (const Road& r : kRoads)
        for (double alpha : {1.0, 0.3, 0.0}) cases.push_back({r.ta, r.tb, r.m, r.n, r.k, alpha, 0.0, 1, Poison::none});
    cases.push_back({'N', 'N', 30, 30, 0, 1.0, 0.0, 0, Poison::none});
    run_table(cases, [](const GemmCase<double>& t) { return run_prepared_case<double>(t, infinity_and_nan_in_c); });
}

// NaN and infinity in A or B reach the elements of C they take part in, on
// every road, whether beta adds C or not.
TEST(GemmBlocked, NanAndInfinityInTheFactorsPropagate)
{
    std::vector<GemmCase<double>> nan_cases, clean_cases;
    for (const Road& r : kRoads)
        for (double beta : {0.0, 1.0}) {
            nan_cases.push_back({r.ta, r.tb, r.m, r.n, r.k, 0.3, beta, 2, Poison::a});
            nan_cases.push_back({r.ta, r.tb, r.m, r.n, r.k, 1.0, beta, 0, Poison::b});
            clean_cases.push_back({r.ta, r.tb, r.m, r.n, r.k, -1.0, beta, 1, Poison::none});
        }
    run_table(nan_cases, run_case<double>);
    run_table(clean_cases, [](const GemmCase<double>& t) { return run_prepared_case<double>(t, infinity_in_a); });
    run_table(clean_cases, [](const GemmCase<double>& t) { return run_prepared_case<double>(t, infinity_in_b); });
}

// With k = 0 only beta acts: 1 leaves C alone, 0 clears it, 2 doubles it.
TEST(GemmBlocked, EmptyInnerDimensionScalesC)
{
    std::vector<GemmCase<double>> cases;
    for (const Road& r : kRoads)
        for (double beta : {1.0, 0.0, 2.0}) cases.push_back({r.ta, r.tb, r.m, r.n, 0, 1.0, beta, 1, Poison::none});
    run_table(cases, run_case<double>);
}

}  // namespace
}  // namespace l3test
