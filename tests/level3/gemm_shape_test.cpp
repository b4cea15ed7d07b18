// dgemm_ and zgemm_ give an element of C the same bits whatever the shape of
// the call:
// a call on a leading sub-block of C (fewer rows or columns, the same k,
// scalars and data) must reproduce the full call's elements exactly, though
// the two calls may take different roads (direct, tiny, thin, blocked) and
// cut their register tiles and cache blocks differently. The data use all 53
// bits, so another order of the sums, another rounding of alpha or beta, or a
// fused multiply-add where the other road rounds the product shows. One row
// of op(A) and one column of op(B) are zero, and another pair is so small
// that their products underflow, so that the sign of a zero sum shows too.
// The suite runs once per code path.
#include <cstdint>
#include <ios>
#include <utility>

#include "gemm_reference.h"

namespace l3test {
namespace {

template <typename T>
struct ShapeCase {
    char ta, tb;
    int m, n, k;
    T alpha, beta;
    std::vector<std::pair<int, int>> subs;  // the leading blocks called on their own
    std::string describe() const
    {
        return std::string("gemm ") + ta + tb + " m=" + std::to_string(m) + " n=" + std::to_string(n) +
               " k=" + std::to_string(k) + " alpha=" + show(alpha) + " beta=" + show(beta);
    }
};

// Element (r, l) of op(X) as stored.
template <typename T>
T& op_ref(Mat<T>& x, char trans, int r, int l)
{
    return std::toupper(trans) == 'N' ? x.at(r, l) : x.at(l, r);
}

template <typename T>
void fill_operands(const ShapeCase<T>& t, Mat<T>& a, Mat<T>& b, Mat<T>& c, Rng& rng)
{
    a.fill(rng);
    b.fill(rng);
    c.fill(rng);
    // Zeros in C meet beta -1 and a zero sum: -0 plus +0 is +0.
    for (int j = 0; j < t.n; ++j)
        for (int i = j % 3; i < t.m; i += 3) c.at(i, j) = T{};
    for (int l = 0; l < t.k; ++l) {
        const double tiny = (l % 2 ? 1e-200 : -1e-200) * (1.0 + rng.full() / 2);
        if (t.m > 1) op_ref(a, t.ta, 1, l) = T(tiny);
        if (t.n > 1) op_ref(b, t.tb, l, 1) = T(tiny);
        if (t.m > 2) op_ref(a, t.ta, 2, l) = T(l % 2 ? 0.0 : -0.0);
        if (t.n > 2) op_ref(b, t.tb, l, 2) = T{};
    }
}

template <typename T>
::testing::AssertionResult run_shape_case(const ShapeCase<T>& t)
{
    Rng rng(std::uint64_t(t.m) * 7919 + std::uint64_t(t.n) * 131 + std::uint64_t(t.k) * 3 + t.ta + 5 * t.tb);
    const bool a_plain = std::toupper(t.ta) == 'N', b_plain = std::toupper(t.tb) == 'N';
    Mat<T> a(a_plain ? t.m : t.k, a_plain ? t.k : t.m, 1);
    Mat<T> b(b_plain ? t.k : t.n, b_plain ? t.n : t.k, 2);
    Mat<T> c(t.m, t.n, 3);
    fill_operands(t, a, b, c, rng);

    Mat<T> full = c;
    gemm(t.ta, t.tb, t.m, t.n, t.k, t.alpha, a.data(), a.ld, b.data(), b.ld, t.beta, full.data(), full.ld);
    for (const auto& [ms, ns] : t.subs) {
        Mat<T> part = c;
        gemm(t.ta, t.tb, ms, ns, t.k, t.alpha, a.data(), a.ld, b.data(), b.ld, t.beta, part.data(), part.ld);
        if (auto guards = part.buf.guards_intact(); !guards) return guards;
        for (int j = 0; j < t.n; ++j)
            for (int i = 0; i < c.ld; ++i) {
                const bool inside = i < ms && j < ns;
                const T want = inside ? full.at(i, j) : c.at(i, j);
                if (!orvtest::same_bits(part.at(i, j), want))
                    return ::testing::AssertionFailure()
                           << "the call on " << ms << " x " << ns << " gives (" << i << "," << j << ") = "
                           << std::hexfloat << show(part.at(i, j)) << (inside ? ", the full call " : ", it held ")
                           << show(want);
            }
    }
    return ::testing::AssertionSuccess();
}

const double kScalars[4] = {1.0, 0.0, -1.0, 0.3};
const char kLetters[3] = {'N', 'T', 'C'};

// Sizes on both sides of the register tiles (4, 8, 12, 24 rows; 4, 6, 8, 28
// columns and the remainders below), of the roads' limits (thin below 4
// columns or 8 rows, tiny up to 10, the direct kernel's q and row limits, 40
// rows or columns for shallow products) and of the k-blocks (one block up to
// 256, two halves to 383, blocks of 192 from 384 with a remainder of up to a
// quarter joining the last; the baseline's 256 with up to 320).
const int kRows[] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 15, 16, 17, 20, 21, 23, 24,
                     25, 28, 29, 31, 32, 33, 36, 40, 41, 47, 48, 49, 64, 70, 71, 100, 101};
const int kCols[] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 16, 17, 21, 23, 24, 25, 27, 28, 29, 31, 33, 40, 41};
const int kShallow[] = {1, 2, 3, 4, 5, 6, 7, 9, 10, 11, 12, 13, 21, 31, 64, 127, 128, 129};
const int kDeep[] = {130, 192, 255, 256, 257, 300, 320, 321, 383, 384, 385, 416, 441, 576, 577};

template <std::size_t N>
int pick(Rng& rng, const int (&list)[N], int at_most = 1 << 30)
{
    for (;;) {
        const int v = list[rng.bits() % N];
        if (v <= at_most) return v;
    }
}

// Three leading blocks of m x n: fewer rows, fewer columns, fewer of both,
// each size taken from `rows` and `cols` (or one less than the full size).
template <std::size_t R, std::size_t C>
std::vector<std::pair<int, int>> leading_blocks(Rng& rng, int m, int n, const int (&rows)[R], const int (&cols)[C])
{
    const auto fewer = [&](int full, const auto& list) {
        return rng.bits() % 4 == 0 ? std::max(1, full - 1) : pick(rng, list, full);
    };
    return {{fewer(m, rows), n}, {m, fewer(n, cols)}, {fewer(m, rows), fewer(n, cols)}};
}

// Random shapes for every pair of letters (either case), alpha and beta
// walking their four values (complex: with an imaginary part added to the
// last two).
template <typename T>
T scalar(int i)
{
    if constexpr (kComplex<T>) return i < 2 ? T(kScalars[i]) : T(kScalars[i], 0.7);
    else return kScalars[i];
}

template <typename T, std::size_t D>
std::vector<ShapeCase<T>> random_cases(int per_pair, const int (&depths)[D], int max_rows, int max_cols, int seed)
{
    Rng rng(seed);
    std::vector<ShapeCase<T>> out;
    int index = 0;
    for (int pair = 0; pair < 9; ++pair)
        for (int i = 0; i < per_pair; ++i, ++index) {
            const bool lower = index % 5 == 4;
            const int m = pick(rng, kRows, max_rows), n = pick(rng, kCols, max_cols), k = pick(rng, depths);
            out.push_back({letter(kLetters[pair / 3], lower), letter(kLetters[pair % 3], lower), m, n, k,
                           scalar<T>(index % 4), scalar<T>((index / 4) % 4), leading_blocks(rng, m, n, kRows, kCols)});
        }
    return out;
}

// Shallow products: the direct, tiny and thin roads against each other and
// against the blocked road.
TEST(GemmShape, ShallowProductsAcrossTheRoads)
{
    run_table(random_cases<double>(240, kShallow, 101, 41, 1), run_shape_case<double>);
}

// Deep products: the k-blocks of every road are those of the blocked road.
TEST(GemmShape, DeepProductsAcrossTheDepthBlocks)
{
    run_table(random_cases<double>(60, kDeep, 49, 29, 2), run_shape_case<double>);
}

// Complex products, shallow and deep: the blocked road cuts its complex
// tiles and blocks differently for each shape.
TEST(GemmShape, ComplexProductsAcrossTheRoads)
{
    run_table(random_cases<zcomplex>(40, kShallow, 101, 41, 3), run_shape_case<zcomplex>);
    run_table(random_cases<zcomplex>(12, kDeep, 49, 29, 4), run_shape_case<zcomplex>);
}

// Each pair a shape on one side of a road's limit and a leading block on the
// other, with every pairing of alpha and beta.
TEST(GemmShape, LeadingBlocksOnTheOtherRoad)
{
    const struct {
        char ta, tb;
        int m, n, k;
        std::vector<std::pair<int, int>> subs;
    } shapes[] = {
        {'N', 'N', 101, 11, 64, {{100, 11}, {101, 3}, {100, 3}}},  // blocked; direct up to 100 rows; thin
        {'N', 'N', 13, 40, 12, {{12, 40}, {12, 12}, {9, 9}}},      // the squares 9 and 12 with beta 0
        {'N', 'T', 11, 10, 10, {{10, 10}, {10, 4}, {3, 3}}},       // tiny up to 10 with beta 1
        {'T', 'N', 8, 40, 300, {{7, 40}, {7, 3}, {8, 3}}},         // thin below 8 rows, two k-blocks
        {'T', 'T', 50, 4, 441, {{50, 3}, {49, 1}, {8, 4}}},        // thin below 4 columns, three k-blocks
        {'N', 'N', 22, 22, 22, {{21, 21}, {22, 20}, {7, 22}}},     // the baseline's unpacked products
        {'T', 'N', 41, 30, 6, {{40, 30}, {40, 5}, {12, 30}}},      // shallow: direct up to 40 rows
        {'N', 'T', 30, 41, 6, {{30, 40}, {30, 12}, {4, 41}}},
        {'C', 'N', 30, 30, 7, {{30, 3}, {29, 30}, {11, 13}}},      // one deeper: no longer direct
        {'N', 'C', 24, 28, 321, {{23, 27}, {24, 1}, {1, 28}}},     // the baseline's 256 + 65
        {'T', 'T', 12, 8, 577, {{11, 7}, {4, 8}, {12, 2}}},        // 192 + 192 + 193; 256 + 256 + 65
    };
    std::vector<ShapeCase<double>> cases;
    for (const auto& s : shapes)
        for (double alpha : kScalars)
            for (double beta : kScalars) cases.push_back({s.ta, s.tb, s.m, s.n, s.k, alpha, beta, s.subs});
    run_table(cases, run_shape_case<double>);
}

}  // namespace
}  // namespace l3test
