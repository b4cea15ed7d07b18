// What the norms and the index search of every build must compute whatever
// their order: norms accurate and free of overflow and underflow at any
// scale, the special values, and the first index of the largest magnitude
// by the scalar rule (NaNs included).
#include <cmath>
#include <limits>

#include "paths.h"

namespace orvtest {
namespace {

const double kNaN = std::numeric_limits<double>::quiet_NaN();
const double kInf = std::numeric_limits<double>::infinity();

class Reductions : public ::testing::TestWithParam<PathCase> {};

// sqrt(sum x^2) in x87 extended precision, whose range holds every square
// of a double.
double reference_norm(const std::vector<double>& x)
{
    long double sum = 0;
    for (double v : x) sum += static_cast<long double>(v) * v;
    return static_cast<double>(std::sqrt(sum));
}

TEST_P(Reductions, NormsAreAccurateAtEveryScale)
{
    const PathCase p = GetParam();
    ORV_SKIP_UNLESS_SUPPORTED(p);
    const Kernels k(p);
    Rng rng(81);
    // Near the top of the range, near the bottom, subnormal, and mixed.
    for (int scale_exp : {1000, -1000, -1060, 0})
        for (int n : {2, 7, 33, 64, 129, 1000}) {
            std::vector<double> xv(n);
            for (int i = 0; i < n; ++i) {
                const int spread = scale_exp == 0 ? static_cast<int>(rng.bits() % 600) - 300 : 0;
                xv[i] = std::ldexp(rng.full(), scale_exp + spread);
            }
            const double want = reference_norm(xv);
            const double got = k.dnrm2(n, xv.data(), 1);
            const double tolerance = scale_exp == -1060 ? 1e-3 : 1e-14;  // subnormals carry few bits
            EXPECT_NEAR(got / want, 1.0, tolerance) << "n=" << n << " at 2^" << scale_exp;
            std::vector<zcomplex> zv(n);
            for (int i = 0; i < n; ++i) zv[i] = {xv[i], xv[n - 1 - i]};
            EXPECT_NEAR(k.dznrm2(n, zv.data(), 1) / (want * std::sqrt(2.0)), 1.0, tolerance) << "n=" << n;
        }
}

struct NormCase {
    std::vector<double> x;
    double want;  // NaN: any NaN
};

TEST_P(Reductions, NormSpecialValues)
{
    const PathCase p = GetParam();
    ORV_SKIP_UNLESS_SUPPORTED(p);
    const Kernels k(p);
    const std::vector<NormCase> cases = {
        {{3, 4}, 5},       {{-7}, 7},       {{kNaN}, kNaN},  {{0, 0, 0}, 0},          {{1, kNaN, 1e300}, kNaN},
        {{0, kNaN, 0}, kNaN}, {{1, kInf, 2}, kInf}, {{kInf, kInf}, kNaN}, {{-kInf}, kInf},
    };
    for (const auto& c : cases) {
        // The same values at the start, in the middle and at the end of a
        // longer vector of small values, so that every lane and block sees them.
        for (int pad : {0, 5, 37}) {
            std::vector<double> x(c.x);
            if (pad != 0) {
                x.insert(x.begin(), pad, 0.0);
                x.insert(x.end(), pad, 0.0);
            }
            const double got = k.dnrm2(static_cast<i64>(x.size()), x.data(), 1);
            if (std::isnan(c.want))
                EXPECT_TRUE(std::isnan(got)) << got << " pad " << pad;
            else
                EXPECT_EQ(got, c.want) << "pad " << pad;
        }
    }
    const zcomplex z(3, -4);
    EXPECT_EQ(k.dznrm2(1, &z, 1), 5.0);
}

// A negative step visits the same elements in the same order.
TEST_P(Reductions, NormOfBackwardStepHasTheForwardBits)
{
    const PathCase p = GetParam();
    ORV_SKIP_UNLESS_SUPPORTED(p);
    const Kernels k(p);
    Rng rng(82);
    for (int n : {2, 9, 100, 1000})
        for (int step : {1, 3}) {
            const auto xv = random_values<double>(rng, n * step);
            const auto zv = random_values<zcomplex>(rng, n * step);
            EXPECT_TRUE(same_bits(k.dnrm2(n, xv.data(), step), k.dnrm2(n, xv.data(), -step)));
            EXPECT_TRUE(same_bits(k.dznrm2(n, zv.data(), step), k.dznrm2(n, zv.data(), -step)));
        }
}

// NaNs planted at the edges, in the middle, side by side and at block edges.
std::vector<std::vector<int>> nan_plans(int n)
{
    std::vector<std::vector<int>> plans = {{}};
    for (int at : {0, 1, 2, n / 2, n - 2, n - 1, 255, 256, 511, 512})
        if (at >= 0 && at < n) plans.push_back({at});
    if (n >= 4) plans.push_back({1, n / 2 + 1});
    if (n >= 3) plans.push_back({n / 2, n / 2 + 1});
    return plans;
}

TEST_P(Reductions, IamaxFollowsTheScalarRule)
{
    const PathCase p = GetParam();
    ORV_SKIP_UNLESS_SUPPORTED(p);
    const Kernels k(p);
    Rng rng(83);
    // Integers in [-5, 5] make ties common; growing values move the maximum
    // into every block.
    auto small = [&rng] { return static_cast<double>(static_cast<int>(rng.bits() % 11) - 5); };
    std::vector<int> sizes = kernel_sizes();
    sizes.push_back(1500);
    for (int n : sizes)
        for (bool growing : {false, true})
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
                for (int inc : {1, 2, 3}) {
                    Vec<double> x(n, inc, xv, 8);
                    Vec<zcomplex> z(n, inc, zv, 0);
                    ASSERT_EQ(k.idamax(n, x.data(), inc), model::iamax(n, xv.data(), 1, [](double v) {
                        return std::fabs(v);
                    })) << "n=" << n << " inc " << inc << " NaNs " << plan.size() << " growing " << growing;
                    ASSERT_EQ(k.izamax(n, z.data(), inc), model::iamax(n, zv.data(), 1, model::magnitude))
                        << "n=" << n << " inc " << inc << " NaNs " << plan.size() << " growing " << growing;
                }
            }
}

TEST_P(Reductions, IamaxQuickReturns)
{
    const PathCase p = GetParam();
    ORV_SKIP_UNLESS_SUPPORTED(p);
    const Kernels k(p);
    const std::vector<double> x{kNaN, 2, 3};
    const std::vector<zcomplex> z{{kNaN, 0}, {2, 0}};
    EXPECT_EQ(k.idamax(1, x.data(), 1), 1);  // one element is never read
    EXPECT_EQ(k.izamax(1, z.data(), 1), 1);
    for (i64 inc : {0, -1}) {
        EXPECT_EQ(k.idamax(3, x.data(), inc), 0);
        EXPECT_EQ(k.izamax(2, z.data(), inc), 0);
    }
    for (i64 n : {0, -4}) {
        EXPECT_EQ(k.idamax(n, x.data(), 1), 0);
        EXPECT_EQ(k.izamax(n, z.data(), 1), 0);
    }
    const std::vector<double> zeros{-0.0, 0.0, -0.0};
    EXPECT_EQ(k.idamax(3, zeros.data(), 1), 1);  // signed zeros tie
}

INSTANTIATE_TEST_SUITE_P(Kernels, Reductions, ::testing::ValuesIn(all_paths()), path_name);

}  // namespace
}  // namespace orvtest
