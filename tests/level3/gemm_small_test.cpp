// dgemm_ on small products (every size up to 33), the shapes the direct,
// tiny and thin roads take on the wide code paths: every pair of letters in
// both cases, row and column counts on both sides of the vector widths and
// register tiles, leading dimensions above the minimum, every pairing of
// alpha and beta, and NaN where it must vanish or propagate. The suite runs
// once per code path.
#include <cmath>

#include "gemm_reference.h"

namespace l3test {
namespace {

const char kSmallLetters[3] = {'N', 'T', 'C'};
const double kAlphas[4] = {1.0, -1.0, 0.3, 0.0};
const double kBetas[4] = {0.0, 1.0, -1.0, 0.3};

char pair_letter(int pair, bool first, int index)
{
    return letter(kSmallLetters[first ? pair / 3 : pair % 3], (index / 5) % 2 == 1);
}

// Squares 0..33 with every pair of letters; alpha and beta walk their lists
// so that each pair meets all sixteen pairings along the sizes.
TEST(GemmSmall, Squares)
{
    std::vector<GemmCase<double>> cases;
    int index = 0;
    for (int pair = 0; pair < 9; ++pair)
        for (int s = 0; s <= 33; ++s) {
            cases.push_back({pair_letter(pair, true, index), pair_letter(pair, false, index), s, s, s,
                             kAlphas[(s + pair) % 4], kBetas[(s / 4 + pair) % 4], index % 3, Poison::none});
            ++index;
        }
    run_table(cases, run_case<double>);
}

// Every m in 0..33 against a rotating choice of n and k, so that each row
// remainder of a tile meets each column remainder and several depths.
TEST(GemmSmall, RectanglesAcrossTileEdges)
{
    const int cols[] = {1, 2, 3, 4, 5, 7, 8, 11, 12, 13, 17, 33};
    const int depths[] = {1, 2, 3, 5, 6, 7, 10, 11, 16, 29, 33, 130};
    std::vector<GemmCase<double>> cases;
    int index = 0;
    for (int pair = 0; pair < 9; ++pair)
        for (int m = 0; m <= 33; ++m)
            for (int t = 0; t < 3; ++t) {
                const int n = cols[(m + 5 * t + pair) % 12], k = depths[(3 * m + t + 2 * pair) % 12];
                cases.push_back({pair_letter(pair, true, index), pair_letter(pair, false, index), m, n, k,
                                 kAlphas[index % 3], kBetas[(index / 3) % 4], 1 + index % 3, Poison::none});
                ++index;
            }
    run_table(cases, run_case<double>);
}

// All sixteen pairings of alpha and beta on a few shapes of each road.
TEST(GemmSmall, AlphaBetaPairings)
{
    const struct {
        int m, n, k;
    } shapes[] = {{4, 4, 4}, {9, 9, 9}, {13, 6, 21}, {3, 31, 2}, {32, 32, 32}, {7, 3, 300}};
    std::vector<GemmCase<double>> cases;
    int index = 0;
    for (const auto& sh : shapes)
        for (double alpha : kAlphas)
            for (double beta : kBetas) {
                const int pair = index % 9;
                cases.push_back({pair_letter(pair, true, index), pair_letter(pair, false, index), sh.m, sh.n, sh.k,
                                 alpha, beta, index % 3, Poison::none});
                ++index;
            }
    run_table(cases, run_case<double>);
}

void nan_in_c(Mat<double>&, Mat<double>&, Mat<double>& c, Rng&)
{
    for (int j = 0; j < c.cols; ++j)
        for (int i = 0; i < c.rows; ++i) c.at(i, j) = (i + j) % 2 ? INFINITY : NAN;
}

// Beta 0 never reads C: NaN and infinity there vanish; NaN in A or B reaches
// the elements it takes part in.
TEST(GemmSmall, SpecialValues)
{
    const int sizes[] = {1, 3, 4, 5, 8, 9, 12, 15, 17, 24, 31, 33};
    std::vector<GemmCase<double>> zero_beta, poisoned;
    int index = 0;
    for (int s : sizes)
        for (int pair = 0; pair < 9; pair += 2) {
            const char ta = pair_letter(pair, true, index), tb = pair_letter(pair, false, index);
            zero_beta.push_back({ta, tb, s, s, s, kAlphas[index % 4], 0.0, index % 3, Poison::none});
            poisoned.push_back({ta, tb, s, s + 1, s, 0.3, kBetas[index % 4], 1, Poison::a});
            poisoned.push_back({ta, tb, s + 2, s, s, -1.0, kBetas[(index + 1) % 4], 2, Poison::b});
            ++index;
        }
    run_table(zero_beta, [](const GemmCase<double>& t) { return run_prepared_case<double>(t, nan_in_c); });
    run_table(poisoned, run_case<double>);
}

}  // namespace
}  // namespace l3test
