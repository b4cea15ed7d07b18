// The rotation constructors of every build: the baseline's steps, except
// that the fused builds form drotmg's u with one rounding.
#include <cmath>
#include <limits>

#include "paths.h"

namespace orvtest {
namespace {

const double kNaN = std::numeric_limits<double>::quiet_NaN();

class Constructors : public ::testing::TestWithParam<PathCase> {};

struct Weights {
    double d1, d2, x1, param[5];
};

Weights run_drotmg(decltype(&orv::def::drotmg) f, double d1, double d2, double x1, double y1)
{
    Weights w{d1, d2, x1, {kNaN, kNaN, kNaN, kNaN, kNaN}};
    f(&w.d1, &w.d2, &w.x1, &y1, w.param);
    return w;
}

::testing::AssertionResult same_weights(const Weights& got, const Weights& want)
{
    bool same = same_bits(got.d1, want.d1) && same_bits(got.d2, want.d2) && same_bits(got.x1, want.x1);
    for (int k = 0; k < 5; ++k) same = same && same_bits(got.param[k], want.param[k]);
    if (same) return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << "d1,d2,x1 = " << got.d1 << "," << got.d2 << "," << got.x1 << " flag "
                                         << got.param[0] << "; expected " << want.d1 << "," << want.d2 << ","
                                         << want.x1 << " flag " << want.param[0];
}

// Random values over 2^-32 .. 2^32, zeros and signs included.
double wide_value(Rng& rng, int k)
{
    if (k % 17 == 0) return 0.0;
    return std::ldexp(rng.full(), static_cast<int>(rng.bits() % 64) - 32);
}

TEST_P(Constructors, GivensRotationsHaveTheBaselineBits)
{
    const PathCase p = GetParam();
    ORV_SKIP_UNLESS_SUPPORTED(p);
    const auto& k = Kernels(p).table();
    Rng rng(91);
    for (int i = 0; i < 500; ++i) {
        const double a = wide_value(rng, i), b = wide_value(rng, i / 3);
        double a1 = a, b1 = b, c1 = kNaN, s1 = kNaN, a2 = a, b2 = b, c2 = kNaN, s2 = kNaN;
        k.drotg(&a1, &b1, &c1, &s1);
        orv::def::drotg(&a2, &b2, &c2, &s2);
        ASSERT_TRUE(same_bits(a1, a2) && same_bits(b1, b2) && same_bits(c1, c2) && same_bits(s1, s2)) << a << " " << b;

        dcomplex ca1{a, wide_value(rng, i)}, ca2 = ca1, s3{kNaN, kNaN}, s4 = s3;
        const dcomplex cb{b, wide_value(rng, i + 1)};
        double c3 = kNaN, c4 = kNaN;
        k.zrotg(&ca1, &cb, &c3, &s3);
        orv::def::zrotg(&ca2, &cb, &c4, &s4);
        ASSERT_TRUE(same_bits(ca1.re, ca2.re) && same_bits(ca1.im, ca2.im) && same_bits(c3, c4) &&
                    same_bits(s3.re, s4.re) && same_bits(s3.im, s4.im));
    }
}

// Builds that do not fuse follow the baseline's drotmg bit for bit,
// rescaling included.
TEST_P(Constructors, ModifiedRotationOfUnfusedBuildsHasTheBaselineBits)
{
    const PathCase p = GetParam();
    ORV_SKIP_UNLESS_SUPPORTED(p);
    if (model::fused(p.order)) {
        GTEST_SKIP() << "u rounds once here";
    }
    const auto& k = Kernels(p).table();
    Rng rng(92);
    for (int i = 0; i < 500; ++i) {
        const double d1 = std::fabs(wide_value(rng, i)), d2 = (i % 5 ? 1 : -1) * std::fabs(wide_value(rng, 1));
        const double x1 = wide_value(rng, 1), y1 = wide_value(rng, i);
        ASSERT_TRUE(same_weights(run_drotmg(k.drotmg, d1, d2, x1, y1), run_drotmg(orv::def::drotmg, d1, d2, x1, y1)))
            << d1 << " " << d2 << " " << x1 << " " << y1;
    }
}

// Weights and values near 1 build H without rescaling; each output follows
// the steps, with u = 1 - h12*h21 or 1 + h11*h22 in the build's rounding.
TEST_P(Constructors, ModifiedRotationFormsUInTheBuildsRounding)
{
    const PathCase p = GetParam();
    ORV_SKIP_UNLESS_SUPPORTED(p);
    const auto& k = Kernels(p).table();
    Rng rng(93);
    int fused_differs = 0;
    for (int i = 0; i < 400; ++i) {
        const double d1 = 1.0 + 0.5 * rng.full(), d2 = 1.0 + 0.5 * rng.full();
        const double x1 = rng.full() + 2.0 * (i % 2), y1 = rng.full() + 2.0 * (i % 3 == 0);
        Weights want{d1, d2, x1, {kNaN, kNaN, kNaN, kNaN, kNaN}};
        const double p1 = d1 * x1, p2 = d2 * y1;
        if (std::fabs(p1 * x1) > std::fabs(p2 * y1)) {
            const double t = y1 / p1, h12 = d2 * t, h21 = -d1 * t;
            const double u = model::drotmg_u(-h12, h21, p.order);
            fused_differs += u != 1 - h12 * h21;
            want = {d1 * (1 / u), d2 * (1 / u), x1 * u, {0.0, kNaN, h21, h12, kNaN}};
        } else {
            const double t = x1 / p2, h11 = d1 * t, h22 = d2 * t;
            const double u = model::drotmg_u(h11, h22, p.order);
            fused_differs += u != 1 + h11 * h22;
            want = {d2 * (1 / u), d1 * (1 / u), y1 * u, {1.0, h11, kNaN, kNaN, h22}};
        }
        ASSERT_TRUE(same_weights(run_drotmg(k.drotmg, d1, d2, x1, y1), want)) << d1 << " " << d2 << " " << x1 << " " << y1;
    }
    // The inputs do tell the roundings apart.
    if (model::fused(p.order)) {
        EXPECT_GT(fused_differs, 0);
    }
}

TEST_P(Constructors, Magnitude)
{
    const PathCase p = GetParam();
    ORV_SKIP_UNLESS_SUPPORTED(p);
    const auto& k = Kernels(p).table();
    const dcomplex z{3, -4}, w{-0.5, 0.25};
    EXPECT_EQ(k.dcabs1(&z), 7.0);
    EXPECT_EQ(k.dcabs1(&w), 0.75);
}

INSTANTIATE_TEST_SUITE_P(Kernels, Constructors, ::testing::ValuesIn(all_paths()), path_name);

}  // namespace
}  // namespace orvtest
