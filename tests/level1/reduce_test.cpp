// Norms, sums of magnitudes and the index of the largest magnitude through
// the exports: fixed orders bit for bit, exact sums, NaN rules and the
// quick returns.
#include <cmath>
#include <cstring>
#include <limits>

#include "level1_test.h"
#include "models.h"

namespace orvtest {
namespace {

const double kNaN = std::numeric_limits<double>::quiet_NaN();
const double kInf = std::numeric_limits<double>::infinity();

class ReduceIncrement : public ::testing::TestWithParam<int> {};

std::vector<int> placements(int inc) { return inc == 1 || inc == -1 ? offsets() : std::vector<int>{0, 8}; }

// From its threading threshold on a vector may be split over threads, whose
// partial results are combined in another order (and a NaN no longer
// restarts the search of a later chunk); the order checks stay below it.
constexpr int kRealSplits = 8192, kComplexSplits = 4096;

TEST_P(ReduceIncrement, SumsAndNormsFollowTheirOrder)
{
    const int inc = GetParam();
    Rng rng(31);
    for (int n : level1_sizes()) {
        const auto xv = stored_as(random_values<double>(rng, n), inc);
        const auto zv = stored_as(random_values<zcomplex>(rng, n), inc);
        for (int off : placements(inc)) {
            Vec<double> x(n, inc, xv, off);
            Vec<zcomplex> z(n, inc, zv, off);
            const double asum = dasum_(&n, x.data(), &inc), nrm2 = dnrm2_(&n, x.data(), &inc);
            const double zasum = dzasum_(&n, z.data(), &inc), znrm2 = dznrm2_(&n, z.data(), &inc);
            if (n < kRealSplits) {
                ASSERT_TRUE(same_bits(asum, model::dasum(n, x.data(), inc))) << "dasum n=" << n << " at +" << off;
                ASSERT_TRUE(same_bits(nrm2, model::dnrm2(n, x.data(), inc))) << "dnrm2 n=" << n << " at +" << off;
            }
            if (n < kComplexSplits) {
                ASSERT_TRUE(same_bits(zasum, model::dzasum(n, z.data(), inc))) << "dzasum n=" << n << " at +" << off;
                ASSERT_TRUE(same_bits(znrm2, model::dznrm2(n, z.data(), inc))) << "dznrm2 n=" << n << " at +" << off;
            }
            ASSERT_TRUE(x.holds(xv));
            ASSERT_TRUE(z.holds(zv));
        }
    }
}

// Coarse values make every partial sum exact, so any order gives the sum of
// the definition, and a wrong element shows.
TEST_P(ReduceIncrement, SumsOfCoarseValuesAreExact)
{
    const int inc = GetParam();
    Rng rng(32);
    for (int n : level1_sizes()) {
        const auto xv = stored_as(coarse_values(rng, n), inc);
        std::vector<zcomplex> zv(n);
        for (auto& e : zv) e = rng.zcoarse();
        zv = stored_as(zv, inc);
        double want = 0.0, zwant = 0.0;
        for (int i = 0; i < n; ++i) {
            want += std::fabs(xv[i]);
            zwant += std::fabs(zv[i].real()) + std::fabs(zv[i].imag());
        }
        Vec<double> x(n, inc, xv, 8);
        Vec<zcomplex> z(n, inc, zv, 8);
        ASSERT_EQ(dasum_(&n, x.data(), &inc), want) << "n=" << n;
        ASSERT_EQ(dzasum_(&n, z.data(), &inc), zwant) << "n=" << n;
    }
}

INSTANTIATE_TEST_SUITE_P(Level1, ReduceIncrement, ::testing::Values(1, -1, 2, -3, 0),
                         [](const auto& info) { return inc_name(info.param); });

// A negative increment visits the same elements forwards, so the bits agree.
TEST(Nrm2, BackwardStepGivesTheForwardBits)
{
    Rng rng(34);
    for (int n : {2, 9, 100}) {
        for (int step : {1, 3}) {
            const auto xv = random_values<double>(rng, n * step);
            const auto zv = random_values<zcomplex>(rng, n * step);
            const int back = -step;
            EXPECT_TRUE(same_bits(dnrm2_(&n, xv.data(), &step), dnrm2_(&n, xv.data(), &back)));
            EXPECT_TRUE(same_bits(dznrm2_(&n, zv.data(), &step), dznrm2_(&n, zv.data(), &back)));
        }
    }
}

struct NormCase {
    std::vector<double> x;
    double want;  // NaN: any NaN
    double tolerance;
};

TEST(Nrm2, Values)
{
    const std::vector<NormCase> cases = {
        {{3, 4}, 5, 0},
        {{1e200, 1e200}, 1.4142135623730951e200, 1e-15},
        {{1e-200, -1e-200}, 1.4142135623730951e-200, 1e-15},
        {{-7}, 7, 0},
        {{kNaN}, kNaN, 0},
        {{0, 0, 0}, 0, 0},
        {{1, kNaN, 1e300}, kNaN, 0},
        {{0, kNaN, 0}, kNaN, 0},
        {{1, kInf, 2}, kInf, 0},
        {{kInf, kInf}, kNaN, 0},
        {{-kInf}, kInf, 0},
    };
    const int one = 1;
    for (const auto& c : cases) {
        // The values at the start, in the middle and at the end of a longer
        // vector of zeros, so that every lane and block sees them.
        for (int pad : {0, 5, 37}) {
            std::vector<double> x(c.x);
            x.insert(x.begin(), pad, 0.0);
            x.insert(x.end(), pad, 0.0);
            const int n = static_cast<int>(x.size());
            const double got = dnrm2_(&n, x.data(), &one);
            if (std::isnan(c.want))
                EXPECT_TRUE(std::isnan(got)) << got << " pad " << pad;
            else if (c.tolerance == 0)
                EXPECT_EQ(got, c.want) << "pad " << pad;
            else
                EXPECT_NEAR(got / c.want, 1.0, c.tolerance) << "pad " << pad;
        }
    }
    const zcomplex z(3, -4);
    EXPECT_EQ(dznrm2_(&one, &z, &one), 5.0);
}

// Near the top of the range, near the bottom, subnormal, and mixed scales:
// no overflow, no underflow, against a sum in long double.
TEST(Nrm2, AccurateAtEveryScale)
{
    Rng rng(37);
    const int one = 1;
    for (int scale_exp : {1000, -1000, -1060, 0})
        for (int n : {2, 7, 33, 64, 129, 1000}) {
            std::vector<double> xv(n);
            std::vector<zcomplex> zv(n);
            long double sum = 0;
            for (int i = 0; i < n; ++i) {
                const int spread = scale_exp == 0 ? static_cast<int>(rng.bits() % 600) - 300 : 0;
                xv[i] = std::ldexp(rng.full(), scale_exp + spread);
                sum += static_cast<long double>(xv[i]) * xv[i];
            }
            for (int i = 0; i < n; ++i) zv[i] = {xv[i], xv[n - 1 - i]};
            const double want = static_cast<double>(std::sqrt(sum));
            const double tolerance = scale_exp == -1060 ? 1e-3 : 1e-14;  // subnormals carry few bits
            EXPECT_NEAR(dnrm2_(&n, xv.data(), &one) / want, 1.0, tolerance) << "n=" << n << " at 2^" << scale_exp;
            EXPECT_NEAR(dznrm2_(&n, zv.data(), &one) / (want * std::sqrt(2.0)), 1.0, tolerance) << "n=" << n;
        }
}

TEST(Asum, Values)
{
    const std::vector<double> x{1, -2, 3};
    const zcomplex z(3, 4);
    const int three = 3, one = 1, zero = 0, minus = -2;
    EXPECT_EQ(dasum_(&three, x.data(), &one), 6.0);
    EXPECT_EQ(dzasum_(&one, &z, &one), 7.0);
    for (const int* n : {&zero, &minus}) {
        EXPECT_TRUE(same_bits(dasum_(n, x.data(), &one), 0.0));
        EXPECT_TRUE(same_bits(dzasum_(n, &z, &one), 0.0));
        EXPECT_TRUE(same_bits(dnrm2_(n, x.data(), &one), 0.0));
        EXPECT_TRUE(same_bits(dznrm2_(n, &z, &one), 0.0));
    }
    const zcomplex w(-0.5, 0.25);
    EXPECT_EQ(dcabs1_(&z), 7.0);
    EXPECT_EQ(dcabs1_(&w), 0.75);
}

// Integers in [-5, 5] make ties common; NaNs are planted at the edges, in the
// middle, next to each other and at block edges.
std::vector<std::vector<int>> nan_plans(int n)
{
    std::vector<std::vector<int>> plans = {{}};
    for (int at : {0, 1, 2, n / 2, n - 2, n - 1, 255, 256, 511, 512})
        if (at >= 0 && at < n) plans.push_back({at});
    if (n >= 4) plans.push_back({1, n / 2 + 1});
    if (n >= 3) plans.push_back({n / 2, n / 2 + 1});
    return plans;
}

class IamaxIncrement : public ::testing::TestWithParam<int> {};

TEST_P(IamaxIncrement, FollowsTheScalarRule)
{
    const int inc = GetParam();
    Rng rng(35);
    auto small = [&rng] { return static_cast<double>(static_cast<int>(rng.bits() % 11) - 5); };
    for (int n : level1_sizes()) {
        // Growing values move the maximum into every block.
        for (bool growing : {false, true}) {
            for (const auto& plan : nan_plans(n)) {
                std::vector<double> xv(n);
                std::vector<zcomplex> zv(n);
                for (int i = 0; i < n; ++i) {
                    xv[i] = growing ? (i % 2 ? -1.0 : 1.0) * (i / 3) : small();
                    zv[i] = {xv[i], growing ? 0.5 : small() / 2};
                }
                for (int at : plan) {
                    xv[at] = kNaN;
                    zv[at] = {at % 2 ? 1.0 : kNaN, at % 2 ? kNaN : 1.0};
                }
                const int want = model::iamax(n, xv.data(), 1, [](double v) { return std::fabs(v); });
                const int zwant = model::iamax(n, zv.data(), 1, model::magnitude);
                for (int off : inc == 1 ? offsets() : std::vector<int>{0}) {
                    Vec<double> x(n, inc, xv, off);
                    Vec<zcomplex> z(n, inc, zv, off);
                    // Without NaNs any split finds the first largest element.
                    if (plan.empty() || n < kRealSplits) {
                        ASSERT_EQ(idamax_(&n, x.data(), &inc), want)
                            << "n=" << n << " at +" << off << " NaNs " << plan.size() << " growing " << growing;
                    }
                    if (plan.empty() || n < kComplexSplits) {
                        ASSERT_EQ(izamax_(&n, z.data(), &inc), zwant)
                            << "n=" << n << " at +" << off << " NaNs " << plan.size() << " growing " << growing;
                    }
                    ASSERT_TRUE(x.holds(xv));
                }
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Level1, IamaxIncrement, ::testing::Values(1, 2, 3),
                         [](const auto& info) { return inc_name(info.param); });

struct IamaxCase {
    std::vector<double> x;
    int n, inc, want;
};

TEST(Iamax, Cases)
{
    const std::vector<IamaxCase> cases = {
        {{1, -5, 5}, 3, 1, 2},          // first of equal magnitudes
        {{2, 0, kNaN, 0, 1}, 3, 2, 3},  // the NaN replaces 2, the next element replaces the NaN
        {{kNaN, 1, 3, 3}, 4, 1, 3},     // a leading NaN is replaced at once
        {{1, 2, kNaN}, 3, 1, 3},        // a trailing NaN stays
        {{kNaN}, 1, 1, 1},              // one element is never read
        {{1, 2}, 2, 0, 0},              // non-positive increments
        {{1, 2}, 2, -1, 0},
        {{1, 2}, 0, 1, 0},              // empty and negative lengths
        {{1, 2}, -4, 1, 0},
        {{-0.0, 0.0, -0.0}, 3, 1, 1},   // signed zeros tie
        {{1, kInf, -kInf}, 3, 1, 2},
    };
    for (const auto& c : cases)
        EXPECT_EQ(idamax_(&c.n, c.x.data(), &c.inc), c.want) << "n=" << c.n << " inc=" << c.inc;
    const std::vector<zcomplex> z{{1, 1}, {-2, 0}};
    const int two = 2, one = 1, zero = 0;
    EXPECT_EQ(izamax_(&two, z.data(), &one), 1);
    EXPECT_EQ(izamax_(&two, z.data(), &zero), 0);
}

// Doubles off an 8-byte boundary cannot be aligned by peeling; the kernels
// must still read them (unaligned) and give the definition's values. Coarse
// values keep the sums exact in any order.
TEST(Alignment, ArraysOffEightByteBoundaries)
{
    Rng rng(36);
    for (int n : {1, 2, 7, 16, 17, 33}) {
        const auto xv = coarse_values(rng, n), yv = coarse_values(rng, n);
        std::vector<unsigned char> xb(n * 8 + 16), yb(n * 8 + 16);
        auto* x = reinterpret_cast<double*>(xb.data() + 4);  // only the library reads through these
        auto* y = reinterpret_cast<double*>(yb.data() + 4);
        std::memcpy(xb.data() + 4, xv.data(), n * 8);
        std::memcpy(yb.data() + 4, yv.data(), n * 8);
        double dot = 0, asum = 0;
        int imax = 0;
        for (int i = 0; i < n; ++i) {
            dot += xv[i] * yv[i];
            asum += std::fabs(xv[i]);
            if (std::fabs(xv[i]) > std::fabs(xv[imax])) imax = i;
        }
        const int one = 1;
        EXPECT_EQ(ddot_(&n, x, &one, y, &one), dot) << n;
        EXPECT_EQ(dasum_(&n, x, &one), asum) << n;
        EXPECT_EQ(idamax_(&n, x, &one), imax + 1) << n;

        const double alpha = 0.5, c = 0.75, s = 0.5;
        daxpy_(&n, &alpha, x, &one, y, &one);
        dscal_(&n, &alpha, x, &one);
        drot_(&n, x, &one, y, &one, &c, &s);
        std::vector<double> xr(n), yr(n);
        std::memcpy(xr.data(), xb.data() + 4, n * 8);
        std::memcpy(yr.data(), yb.data() + 4, n * 8);
        for (int i = 0; i < n; ++i) {
            const double yi = yv[i] + alpha * xv[i], xi = alpha * xv[i];
            ASSERT_EQ(xr[i], c * xi + s * yi) << n;
            ASSERT_EQ(yr[i], c * yi - s * xi) << n;
        }
    }
}

}  // namespace
}  // namespace orvtest
