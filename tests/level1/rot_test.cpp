// Plane rotations through the exports: application (drot, zdrot, drotm with
// every flag) bit for bit against the definition, and the constructors
// against scalar emulations of their steps and against what a rotation must
// do (annihilate the second component, preserve the weighted norm).
#include <cmath>
#include <limits>

#include "level1_test.h"
#include "models.h"

namespace orvtest {
namespace {

const double kNaN = std::numeric_limits<double>::quiet_NaN();

std::vector<IncPair> writable_inc_pairs()
{
    std::vector<IncPair> pairs;
    for (IncPair p : inc_pairs())
        if (p.x != 0) pairs.push_back(p);
    return pairs;
}

std::vector<int> placements(IncPair inc) { return unit_pair(inc) ? offsets() : std::vector<int>{0, 8}; }

class RotIncrements : public ::testing::TestWithParam<IncPair> {};

TEST_P(RotIncrements, DrotAndZdrot)
{
    const IncPair inc = GetParam();
    Rng rng(41);
    const double c = rng.full(), s = rng.full();
    for (int n : level1_sizes()) {
        const auto xv = random_values<double>(rng, n), yv = random_values<double>(rng, n);
        const auto zx = random_values<zcomplex>(rng, n), zy = random_values<zcomplex>(rng, n);
        std::vector<double> wx(n), wy(n);
        std::vector<zcomplex> zwx(n), zwy(n);
        for (int i = 0; i < n; ++i) {
            const model::Rotated r = model::rot(c, s, xv[i], yv[i]);
            const model::Rotated re = model::rot(c, s, zx[i].real(), zy[i].real());
            const model::Rotated im = model::rot(c, s, zx[i].imag(), zy[i].imag());
            wx[i] = r.x, wy[i] = r.y;
            zwx[i] = {re.x, im.x};
            zwy[i] = {re.y, im.y};
        }
        for (int ox : placements(inc))
            for (int oy : placements(inc)) {
                Vec<double> x(n, inc.x, xv, ox), y(n, inc.y, yv, oy);
                drot_(&n, x.data(), &inc.x, y.data(), &inc.y, &c, &s);
                ASSERT_TRUE(x.holds(wx)) << "drot n=" << n << " at +" << ox << ",+" << oy;
                ASSERT_TRUE(y.holds(wy)) << "drot n=" << n << " at +" << ox << ",+" << oy;
                Vec<zcomplex> cx(n, inc.x, zx, ox), cy(n, inc.y, zy, oy);
                zdrot_(&n, cx.data(), &inc.x, cy.data(), &inc.y, &c, &s);
                ASSERT_TRUE(cx.holds(zwx)) << "zdrot n=" << n << " at +" << ox << ",+" << oy;
                ASSERT_TRUE(cy.holds(zwy)) << "zdrot n=" << n << " at +" << ox << ",+" << oy;
            }
    }
}

// H of a parameter array as an explicit matrix.
struct H2 {
    double h11, h21, h12, h22;
};
H2 explicit_h(const double* p)
{
    if (p[0] < 0 && p[0] != -2) return {p[1], p[2], p[3], p[4]};
    if (p[0] == 0) return {1, p[2], p[3], 1};
    if (p[0] == 1) return {p[1], -1, 1, p[4]};
    return {1, 0, 0, 1};
}

TEST_P(RotIncrements, DrotmEveryFlag)
{
    const IncPair inc = GetParam();
    Rng rng(42);
    for (double flag : {-1.0, 0.0, 1.0, -2.0}) {
        // Entries the flag leaves implicit hold NaN: reading one would show.
        double param[5] = {flag, kNaN, kNaN, kNaN, kNaN};
        if (flag == -1) param[1] = rng.full(), param[2] = rng.full(), param[3] = rng.full(), param[4] = rng.full();
        if (flag == 0) param[2] = rng.full(), param[3] = rng.full();
        if (flag == 1) param[1] = rng.full(), param[4] = rng.full();
        for (int n : level1_sizes()) {
            const auto xv = random_values<double>(rng, n), yv = random_values<double>(rng, n);
            std::vector<double> wx = xv, wy = yv;
            for (int i = 0; i < n; ++i) {
                model::Rotated r{xv[i], yv[i]};
                if (flag == -1) r = model::rotm_full(param[1], param[2], param[3], param[4], xv[i], yv[i]);
                if (flag == 0) r = model::rotm_off_diagonal(param[2], param[3], xv[i], yv[i]);
                if (flag == 1) r = model::rotm_diagonal(param[1], param[4], xv[i], yv[i]);
                wx[i] = r.x, wy[i] = r.y;
            }
            for (int off : placements(inc)) {
                Vec<double> x(n, inc.x, xv, off), y(n, inc.y, yv, off);
                drotm_(&n, x.data(), &inc.x, y.data(), &inc.y, param);
                ASSERT_TRUE(x.holds(wx)) << "flag " << flag << " n=" << n << " at +" << off;
                ASSERT_TRUE(y.holds(wy)) << "flag " << flag << " n=" << n << " at +" << off;
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Level1, RotIncrements, ::testing::ValuesIn(writable_inc_pairs()), inc_pair_name);

// ---- Constructors ---------------------------------------------------------

struct Givens {
    double r, z, c, s;
};

// The construction's steps, in the same order of operations.
Givens drotg_steps(double a, double b)
{
    const double roe = std::fabs(a) > std::fabs(b) ? a : b;
    const double scale = std::fabs(a) + std::fabs(b);
    if (scale == 0) return {0, 0, 1, 0};
    double r = scale * std::sqrt((a / scale) * (a / scale) + (b / scale) * (b / scale));
    if (roe < 0) r = -r;
    const double c = a / r, s = b / r;
    double z = std::fabs(a) > std::fabs(b) ? s : 1;
    if (std::fabs(b) >= std::fabs(a) && c != 0) z = 1 / c;
    return {r, z, c, s};
}

Givens run_drotg(double a, double b)
{
    double c = kNaN, s = kNaN;
    drotg_(&a, &b, &c, &s);
    return {a, b, c, s};
}

::testing::AssertionResult same_givens(const Givens& got, const Givens& want)
{
    if (same_bits(got.r, want.r) && same_bits(got.z, want.z) && same_bits(got.c, want.c) && same_bits(got.s, want.s))
        return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << "r,z,c,s = " << got.r << "," << got.z << "," << got.c << "," << got.s
                                         << " expected " << want.r << "," << want.z << "," << want.c << "," << want.s;
}

TEST(Drotg, EdgeCases)
{
    struct Case {
        double a, b;
        Givens want;
    };
    const std::vector<Case> cases = {
        {0, 0, {0, 0, 1, 0}},
        {-0.0, 0, {0, 0, 1, 0}},
        {0, 2, {2, 1, 0, 1}},       // c = 0: z stays 1
        {0, -2, {-2, 1, -0.0, 1}},  // r takes the sign of b; c = -0 still counts as zero
        {2, 0, {2, 0, 1, 0}},       // |a| > |b|: z = s
        {-2, 0, {-2, -0.0, 1, -0.0}},
    };
    for (const auto& c : cases) EXPECT_TRUE(same_givens(run_drotg(c.a, c.b), c.want)) << c.a << ", " << c.b;
    // Equal magnitudes count as |b| >= |a|: z = 1/c.
    const Givens tie = run_drotg(-3, 3);
    EXPECT_TRUE(same_givens(tie, drotg_steps(-3, 3)));
    EXPECT_EQ(tie.z, 1 / tie.c);
    EXPECT_GT(tie.r, 0);
}

TEST(Drotg, GenericValuesFollowTheStepsAndRotate)
{
    Rng rng(43);
    for (int k = 0; k < 200; ++k) {
        const double a = rng.full() * std::ldexp(1.0, static_cast<int>(rng.bits() % 80) - 40);
        const double b = rng.full() * std::ldexp(1.0, static_cast<int>(rng.bits() % 80) - 40);
        const Givens g = run_drotg(a, b);
        ASSERT_TRUE(same_givens(g, drotg_steps(a, b))) << a << ", " << b;
        const double size = std::fabs(g.r);
        EXPECT_NEAR(g.c * a + g.s * b, g.r, 1e-15 * size);
        EXPECT_NEAR(-g.s * a + g.c * b, 0.0, 1e-15 * size);
        EXPECT_NEAR(g.c * g.c + g.s * g.s, 1.0, 1e-15);
    }
}

// Steps of the complex construction.
void zrotg_steps(zcomplex& ca, zcomplex cb, double& c, zcomplex& s)
{
    const double m = std::sqrt(ca.real() * ca.real() + ca.imag() * ca.imag());
    if (m == 0) {
        c = 0;
        s = {1, 0};
        ca = cb;
        return;
    }
    const double scale = std::sqrt(cb.real() * cb.real() + cb.imag() * cb.imag()) + m;
    const double t0 = ca.real() / scale, t1 = ca.imag() / scale, t2 = cb.real() / scale, t3 = cb.imag() / scale;
    const double norm = scale * std::sqrt(((t0 * t0 + t1 * t1) + t2 * t2) + t3 * t3);
    const double ar = ca.real() / m, ai = ca.imag() / m;
    c = m / norm;
    // alpha * conj(cb), each part rounded after its two products are summed
    s = {(ar * cb.real() + ai * cb.imag()) / norm, (ai * cb.real() - ar * cb.imag()) / norm};
    ca = {ar * norm, ai * norm};
}

TEST(Zrotg, ZeroFirstArgument)
{
    for (const zcomplex cb : {zcomplex(3, -4), zcomplex(0, 0), zcomplex(-0.0, kNaN)}) {
        zcomplex ca(0, -0.0), s(kNaN, kNaN);
        double c = kNaN;
        zrotg_(&ca, &cb, &c, &s);
        EXPECT_TRUE(same_bits(c, 0.0));
        EXPECT_TRUE(same_bits(s, zcomplex(1, 0)));
        EXPECT_TRUE(same_bits(ca, cb));
    }
}

TEST(Zrotg, GenericValuesFollowTheStepsAndRotate)
{
    Rng rng(44);
    for (int k = 0; k < 200; ++k) {
        const double scale = std::ldexp(1.0, static_cast<int>(rng.bits() % 60) - 30);
        const zcomplex a0 = rng.zfull() * scale, cb = k % 10 == 0 ? zcomplex(0, 0) : rng.zfull();
        zcomplex ca = a0, s(kNaN, kNaN), want_ca = a0, want_s;
        double c = kNaN, want_c;
        zrotg_(&ca, &cb, &c, &s);
        zrotg_steps(want_ca, cb, want_c, want_s);
        ASSERT_TRUE(same_bits(ca, want_ca) && same_bits(c, want_c) && same_bits(s, want_s)) << a0 << " " << cb;
        const double size = std::abs(ca);
        EXPECT_NEAR(std::abs(c * a0 + s * cb - ca), 0.0, 1e-14 * size);
        EXPECT_NEAR(std::abs(-std::conj(s) * a0 + c * cb), 0.0, 1e-14 * size);
        EXPECT_NEAR(c * c + std::norm(s), 1.0, 1e-14);
    }
}

// ---- Modified rotation constructor ------------------------------------------

struct Weights {
    double d1, d2, x1;
    double param[5];
};

Weights run_drotmg(double d1, double d2, double x1, double y1)
{
    Weights w{d1, d2, x1, {kNaN, kNaN, kNaN, kNaN, kNaN}};
    drotmg_(&w.d1, &w.d2, &w.x1, &y1, w.param);
    return w;
}

// The construction's steps, including the rescaling of d1 and d2.
Weights drotmg_steps(double d1, double d2, double x1, double y1)
{
    const double gam = 4096, gamsq = 16777216, rgamsq = 5.960464477539e-8;
    Weights w{d1, d2, x1, {kNaN, kNaN, kNaN, kNaN, kNaN}};
    double flag = 0, h11 = 0, h21 = 0, h12 = 0, h22 = 0;
    if (d1 < 0) return {0, 0, 0, {-1, 0, 0, 0, 0}};
    const double p2 = d2 * y1;
    if (p2 == 0) {
        w.param[0] = -2;
        return w;
    }
    const double p1 = d1 * x1, q2 = p2 * y1, q1 = p1 * x1;
    if (std::fabs(q1) > std::fabs(q2)) {
        const double t = y1 / p1;
        h12 = d2 * t;
        h21 = -d1 * t;
        const double u = model::drotmg_u(-h12, h21);
        x1 *= u;
        d1 *= 1 / u;
        d2 *= 1 / u;
    } else if (q2 < 0) {
        return {0, 0, 0, {-1, 0, 0, 0, 0}};
    } else {
        const double t = x1 / p2;
        h11 = d1 * t;
        h22 = d2 * t;
        const double u = model::drotmg_u(h11, h22);
        flag = 1;
        const double old_d1 = d1;
        d1 = d2 * (1 / u);
        d2 = old_d1 * (1 / u);
        x1 = y1 * u;
    }
    auto make_explicit = [&] {
        if (flag == 0) h11 = h22 = 1;
        if (flag == 1) h21 = -1, h12 = 1;
        flag = -1;
    };
    if (d1 != 0 && (d1 <= rgamsq || d1 >= gamsq)) {
        make_explicit();
        for (; d1 <= rgamsq; d1 *= gamsq) x1 /= gam, h11 /= gam, h12 /= gam;
        for (; d1 >= gamsq; d1 *= rgamsq) x1 *= gam, h11 *= gam, h12 *= gam;
    }
    if (d2 != 0 && (std::fabs(d2) <= rgamsq || std::fabs(d2) >= gamsq)) {
        make_explicit();
        for (; std::fabs(d2) <= rgamsq; d2 *= gamsq) h21 /= gam, h22 /= gam;
        for (; std::fabs(d2) >= gamsq; d2 *= rgamsq) h21 *= gam, h22 *= gam;
    }
    w = {d1, d2, x1, {flag, kNaN, kNaN, kNaN, kNaN}};
    if (flag < 0) w.param[1] = h11, w.param[2] = h21, w.param[3] = h12, w.param[4] = h22;
    if (flag == 0) w.param[2] = h21, w.param[3] = h12;
    if (flag == 1) w.param[1] = h11, w.param[4] = h22;
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

struct DrotmgCase {
    const char* what;
    double d1, d2, x1, y1, flag;
};

class DrotmgCases : public ::testing::TestWithParam<DrotmgCase> {};

// Each case follows the steps bit for bit; where a rotation is built, H maps
// (x1, y1) to (x1', 0) and d1'*x1'^2 = d1*x1^2 + d2*y1^2.
TEST_P(DrotmgCases, FollowsTheStepsAndAnnihilates)
{
    const DrotmgCase c = GetParam();
    const Weights got = run_drotmg(c.d1, c.d2, c.x1, c.y1);
    ASSERT_TRUE(same_weights(got, drotmg_steps(c.d1, c.d2, c.x1, c.y1)));
    EXPECT_EQ(got.param[0], c.flag);
    if (c.flag == -2) return;
    const H2 h = explicit_h(got.param);
    const double size = std::fabs(h.h11 * c.x1) + std::fabs(h.h12 * c.y1) + std::fabs(h.h21 * c.x1) +
                        std::fabs(h.h22 * c.y1);
    EXPECT_NEAR(h.h11 * c.x1 + h.h12 * c.y1, got.x1, 1e-15 * size);
    EXPECT_NEAR(h.h21 * c.x1 + h.h22 * c.y1, 0.0, 1e-15 * size);
    const double before = c.d1 * c.x1 * c.x1 + c.d2 * c.y1 * c.y1;
    // rgamsq is 2^-24 rounded to 13 digits, so each rescaling step moves the
    // weight by about 1e-13 of itself.
    EXPECT_NEAR(got.d1 * got.x1 * got.x1, before, 1e-12 * std::fabs(before));
}

INSTANTIATE_TEST_SUITE_P(Level1, DrotmgCases,
    ::testing::Values(DrotmgCase{"x_dominates", 2, 3, 5, 1, 0},
                      DrotmgCase{"y_dominates", 2, 3, 1, 5, 1},
                      DrotmgCase{"negative_weight_dominated", 4, -1, 3, 1, 0},
                      DrotmgCase{"generic_a", 0.7, 1.3, -0.25, 0.9, 1},
                      DrotmgCase{"generic_b", 1.9, 0.35, 1.5, -0.75, 0},
                      DrotmgCase{"zero_d1", 0, 2, 3, 4, 1},
                      DrotmgCase{"zero_x1", 1, 2, 0, 4, 1},
                      DrotmgCase{"small_d1_rescaled", 1e-10, 1, 1e6, 1, -1},
                      DrotmgCase{"large_d1_rescaled", 1e10, 1, 3, 0.5, -1},
                      DrotmgCase{"small_d2_rescaled", 1, 1e-10, 5, 1e-3, -1},
                      DrotmgCase{"large_d2_rescaled", 1e9, 1e12, 0.01, 1, -1},
                      DrotmgCase{"both_rescaled", 1e-12, 1e-12, 1, 1, -1}),
    [](const auto& info) { return std::string(info.param.what); });

// Random weights over a wide range reach every branch and both rescalings.
TEST(Drotmg, GenericValuesFollowTheSteps)
{
    Rng rng(45);
    auto wide = [&rng] { return std::ldexp(rng.full(), static_cast<int>(rng.bits() % 64) - 32); };
    for (int k = 0; k < 500; ++k) {
        const double d1 = std::fabs(wide()), d2 = k % 5 == 0 ? -std::fabs(wide()) : std::fabs(wide());
        const double x1 = wide(), y1 = wide();
        ASSERT_TRUE(same_weights(run_drotmg(d1, d2, x1, y1), drotmg_steps(d1, d2, x1, y1)))
            << d1 << " " << d2 << " " << x1 << " " << y1;
    }
}

// A negative d1, or a negative weight that outweighs the first, zeroes
// the weights, x1 and H.
TEST(Drotmg, NegativeWeightsZeroEverything)
{
    const Weights zero{0, 0, 0, {-1, 0, 0, 0, 0}};
    EXPECT_TRUE(same_weights(run_drotmg(-1, 2, 3, 4), zero));
    EXPECT_TRUE(same_weights(run_drotmg(1, -2, 1, 1), zero));  // q2 = -2 outweighs q1 = 1
}

// A zero d2*y1 gives the identity and leaves everything else alone.
TEST(Drotmg, ZeroSecondComponentIsTheIdentity)
{
    for (double d2 : {2.0, 0.0})
        for (double y1 : {0.0, -0.0, 1.0}) {
            if (d2 != 0 && y1 != 0) continue;
            const Weights got = run_drotmg(1.5, d2, 3, y1);
            EXPECT_TRUE(same_weights(got, Weights{1.5, d2, 3, {-2, kNaN, kNaN, kNaN, kNaN}}));
        }
}

// A weight that turns negative only through underflow must not send the
// rescaling loop on forever.
TEST(Drotmg, UnderflowedNegativeWeightFinishes)
{
    const Weights got = run_drotmg(1, -1e-200, 0, 1e-100);
    EXPECT_EQ(got.param[0], -1);
    EXPECT_EQ(got.d2, 1.0);
}

}  // namespace
}  // namespace orvtest
