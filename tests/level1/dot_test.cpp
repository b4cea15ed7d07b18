// Dot products through the exports: the fixed accumulation orders of the
// code path this process runs on, bit for bit at every placement, exact
// results on values whose sums cannot round, and the empty-vector results.
#include "level1_test.h"
#include "models.h"

namespace orvtest {
namespace {

class DotIncrements : public ::testing::TestWithParam<IncPair> {};

// The contiguous paths depend on the 16-byte alignment of x and y, so they
// are run at every 8-byte placement of both; strided paths at two.
std::vector<int> placements(IncPair inc) { return unit_pair(inc) ? offsets() : std::vector<int>{0, 8}; }

// From its threading threshold on a vector may be split over threads, whose
// partial sums meet in another order; the order checks stay below it, and
// the threading frame's tests check the split orders.
constexpr int kDdotSplits = 4096, kZdotSplits = 2048;

TEST_P(DotIncrements, DdotFollowsItsAccumulationOrder)
{
    const IncPair inc = GetParam();
    // The baseline peels to alignment; the reproducible build and the other
    // paths do not, so their sums do not depend on placement.
    const model::Order order = model::run_order();
    Rng rng(11);
    for (int n : level1_sizes()) {
        if (n >= kDdotSplits) continue;
        const auto xv = stored_as(random_values<double>(rng, n), inc.x), yv = random_values<double>(rng, n);
        for (int ox : placements(inc))
            for (int oy : placements(inc)) {
                Vec<double> x(n, inc.x, xv, ox), y(n, inc.y, yv, oy);
                const double got = ddot_(&n, x.data(), &inc.x, y.data(), &inc.y);
                const double want = model::ddot(n, x.data(), inc.x, y.data(), inc.y, order);
                ASSERT_TRUE(same_bits(got, want)) << "n=" << n << " at +" << ox << ",+" << oy << ": " << got
                                                  << " != " << want;
                ASSERT_TRUE(x.holds(xv));
                ASSERT_TRUE(y.holds(yv));
            }
    }
}

TEST_P(DotIncrements, DdotOfCoarseValuesIsExact)
{
    const IncPair inc = GetParam();
    Rng rng(12);
    for (int n : level1_sizes()) {
        const auto xv = stored_as(coarse_values(rng, n), inc.x), yv = coarse_values(rng, n);
        double want = 0.0;  // 24-bit products: every partial sum is exact
        for (int i = 0; i < n; ++i) want += xv[i] * yv[i];
        Vec<double> x(n, inc.x, xv, 8), y(n, inc.y, yv, 0);
        ASSERT_EQ(ddot_(&n, x.data(), &inc.x, y.data(), &inc.y), want) << "n=" << n;
    }
}

TEST_P(DotIncrements, ZdotFollowsItsAccumulationOrder)
{
    const IncPair inc = GetParam();
    const model::Order order = model::run_order();
    Rng rng(13);
    for (int n : level1_sizes()) {
        if (n >= kZdotSplits) continue;
        const auto xv = stored_as(random_values<zcomplex>(rng, n), inc.x), yv = random_values<zcomplex>(rng, n);
        for (int ox : placements(inc))
            for (int oy : placements(inc)) {
                Vec<zcomplex> x(n, inc.x, xv, ox), y(n, inc.y, yv, oy);
                const zcomplex c = orvtest::complex_dot(zdotc_, &n, x.data(), &inc.x, y.data(), &inc.y);
                const zcomplex u = orvtest::complex_dot(zdotu_, &n, x.data(), &inc.x, y.data(), &inc.y);
                const zcomplex wc = model::zdot(n, x.data(), inc.x, y.data(), inc.y, true, order);
                const zcomplex wu = model::zdot(n, x.data(), inc.x, y.data(), inc.y, false, order);
                ASSERT_TRUE(same_bits(c, wc)) << "zdotc n=" << n << " at +" << ox << ",+" << oy << ": " << c;
                ASSERT_TRUE(same_bits(u, wu)) << "zdotu n=" << n << " at +" << ox << ",+" << oy << ": " << u;
                ASSERT_TRUE(x.holds(xv));
                ASSERT_TRUE(y.holds(yv));
            }
    }
}

TEST_P(DotIncrements, ZdotOfCoarseValuesIsExact)
{
    const IncPair inc = GetParam();
    Rng rng(14);
    for (int n : level1_sizes()) {
        std::vector<zcomplex> xv(n), yv(n);
        for (int i = 0; i < n; ++i) {
            xv[i] = rng.zcoarse();
            yv[i] = rng.zcoarse();
        }
        xv = stored_as(xv, inc.x);
        double cr = 0, ci = 0, ur = 0, ui = 0;
        for (int i = 0; i < n; ++i) {
            const double a = xv[i].real(), b = xv[i].imag(), c = yv[i].real(), d = yv[i].imag();
            cr += a * c + b * d;
            ci += a * d - b * c;
            ur += a * c - b * d;
            ui += a * d + b * c;
        }
        Vec<zcomplex> x(n, inc.x, xv), y(n, inc.y, yv);
        const zcomplex c = orvtest::complex_dot(zdotc_, &n, x.data(), &inc.x, y.data(), &inc.y);
        const zcomplex u = orvtest::complex_dot(zdotu_, &n, x.data(), &inc.x, y.data(), &inc.y);
        ASSERT_EQ(c, zcomplex(cr, ci)) << "n=" << n;
        ASSERT_EQ(u, zcomplex(ur, ui)) << "n=" << n;
    }
}

INSTANTIATE_TEST_SUITE_P(Level1, DotIncrements, ::testing::ValuesIn(inc_pairs()), inc_pair_name);

// Empty and negative lengths read nothing: the arrays hold only guards.
TEST(Dot, EmptyVectorsGiveExactZero)
{
    Vec<double> x(4, 1), y(4, 1);
    Vec<zcomplex> zx(4, 1), zy(4, 1);
    const int one = 1;
    for (int n : {0, -1, -3}) {
        EXPECT_TRUE(same_bits(ddot_(&n, x.data(), &one, y.data(), &one), 0.0)) << n;
        const zcomplex c = orvtest::complex_dot(zdotc_, &n, zx.data(), &one, zy.data(), &one);
        const zcomplex u = orvtest::complex_dot(zdotu_, &n, zx.data(), &one, zy.data(), &one);
        EXPECT_TRUE(same_bits(c, zcomplex(0.0, 0.0))) << n;
        EXPECT_TRUE(same_bits(u, zcomplex(0.0, 0.0))) << n;
    }
}

// Both increments -1 pair the same elements as +1 and are walked the same
// way, so the bits agree.
TEST(Dot, BackwardUnitStepsEqualForwardOnes)
{
    Rng rng(15);
    for (int n : {3, 17, 33, 1000}) {
        const auto xv = random_values<double>(rng, n), yv = random_values<double>(rng, n);
        const int plus = 1, minus = -1;
        EXPECT_TRUE(same_bits(ddot_(&n, xv.data(), &plus, yv.data(), &plus),
                              ddot_(&n, xv.data(), &minus, yv.data(), &minus)))
            << n;
    }
}

TEST(Dot, ComplexExample)
{
    const zcomplex x(1, 2), y(3, 4);
    const int n = 1, one = 1;
    const zcomplex c = orvtest::complex_dot(zdotc_, &n, &x, &one, &y, &one);
    const zcomplex u = orvtest::complex_dot(zdotu_, &n, &x, &one, &y, &one);
    EXPECT_EQ(c, zcomplex(11, -2));
    EXPECT_EQ(u, zcomplex(-5, 10));
}

}  // namespace
}  // namespace orvtest
