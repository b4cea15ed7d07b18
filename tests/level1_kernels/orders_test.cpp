// The fixed summation orders of every build's reductions, bit for bit
// against scalar emulations of those orders (tests/level1/models.h), at
// every placement of the arrays; and sums of values that cannot round,
// which must equal the definition whatever the order.
#include <cmath>

#include "paths.h"

namespace orvtest {
namespace {

class Orders : public ::testing::TestWithParam<PathCase> {};

// Contiguous loops are tried at every 8-byte placement within a cache line,
// strided ones at two placements.
std::vector<int> placements(IncPair inc) { return unit_pair(inc) ? offsets() : std::vector<int>{0, 8}; }

TEST_P(Orders, Ddot)
{
    const PathCase p = GetParam();
    ORV_SKIP_UNLESS_SUPPORTED(p);
    const Kernels k(p);
    Rng rng(61);
    for (IncPair inc : kernel_inc_pairs())
        for (int n : kernel_sizes()) {
            const auto xv = stored_as(random_values<double>(rng, n), inc.x), yv = random_values<double>(rng, n);
            for (int ox : placements(inc))
                for (int oy : placements(inc)) {
                    Vec<double> x(n, inc.x, xv, ox), y(n, inc.y, yv, oy);
                    const double got = k.ddot(n, x.data(), inc.x, y.data(), inc.y);
                    const double want = model::ddot(n, x.data(), inc.x, y.data(), inc.y, p.order);
                    ASSERT_TRUE(same_bits(got, want)) << "n=" << n << " inc " << inc.x << "," << inc.y << " at +"
                                                      << ox << ",+" << oy << ": " << got << " != " << want;
                    ASSERT_TRUE(x.holds(xv));
                    ASSERT_TRUE(y.holds(yv));
                }
        }
}

TEST_P(Orders, ComplexDots)
{
    const PathCase p = GetParam();
    ORV_SKIP_UNLESS_SUPPORTED(p);
    const Kernels k(p);
    Rng rng(62);
    for (IncPair inc : kernel_inc_pairs())
        for (int n : kernel_sizes()) {
            const auto xv = stored_as(random_values<zcomplex>(rng, n), inc.x), yv = random_values<zcomplex>(rng, n);
            for (int ox : placements(inc))
                for (int oy : {0, 8}) {
                    Vec<zcomplex> x(n, inc.x, xv, ox), y(n, inc.y, yv, oy);
                    for (bool conjugate : {true, false}) {
                        const zcomplex got = k.zdot(conjugate, n, x.data(), inc.x, y.data(), inc.y);
                        const zcomplex want = model::zdot(n, x.data(), inc.x, y.data(), inc.y, conjugate, p.order);
                        ASSERT_TRUE(same_bits(got, want)) << (conjugate ? "zdotc" : "zdotu") << " n=" << n << " inc "
                                                          << inc.x << "," << inc.y << " at +" << ox << ",+" << oy;
                    }
                    ASSERT_TRUE(x.holds(xv));
                    ASSERT_TRUE(y.holds(yv));
                }
        }
}

TEST_P(Orders, SumsOfMagnitudes)
{
    const PathCase p = GetParam();
    ORV_SKIP_UNLESS_SUPPORTED(p);
    const Kernels k(p);
    Rng rng(63);
    for (int inc : {1, -1, 2, -3, 0})
        for (int n : kernel_sizes()) {
            const auto xv = stored_as(random_values<double>(rng, n), inc);
            const auto zv = stored_as(random_values<zcomplex>(rng, n), inc);
            for (int off : placements({inc, inc})) {
                Vec<double> x(n, inc, xv, off);
                Vec<zcomplex> z(n, inc, zv, off);
                ASSERT_TRUE(same_bits(k.dasum(n, x.data(), inc), model::dasum(n, x.data(), inc, p.order)))
                    << "dasum n=" << n << " inc " << inc << " at +" << off;
                ASSERT_TRUE(same_bits(k.dzasum(n, z.data(), inc), model::dzasum(n, z.data(), inc, p.order)))
                    << "dzasum n=" << n << " inc " << inc << " at +" << off;
                ASSERT_TRUE(x.holds(xv));
                ASSERT_TRUE(z.holds(zv));
            }
        }
}

// Values whose magnitudes spread over many binades, so that the running
// scales grow often and blocks leave the fast path; and runs that start
// small and grow.
std::vector<double> spread_values(Rng& rng, int n, int binades)
{
    std::vector<double> v(n);
    for (int i = 0; i < n; ++i) v[i] = std::ldexp(rng.full(), static_cast<int>(rng.bits() % binades) - binades / 2);
    return v;
}

TEST_P(Orders, Norms)
{
    const PathCase p = GetParam();
    ORV_SKIP_UNLESS_SUPPORTED(p);
    const Kernels k(p);
    Rng rng(64);
    for (int inc : {1, -1, 3, 0})
        for (int n : kernel_sizes())
            for (int kind = 0; kind < 3; ++kind) {
                std::vector<double> xv = kind == 0 ? random_values<double>(rng, n) : spread_values(rng, n, 80);
                if (kind == 2)  // growing: a new scale in nearly every block
                    for (int i = 0; i < n; ++i) xv[i] = std::ldexp(0.75 + 0.25 * rng.full(), i / 3 - 700);
                std::vector<zcomplex> zv(n);
                for (int i = 0; i < n; ++i) zv[i] = {xv[i], kind == 0 ? rng.full() : xv[(i * 7) % n]};
                xv = stored_as(xv, inc);
                zv = stored_as(zv, inc);
                Vec<double> x(n, inc, xv, 8);
                Vec<zcomplex> z(n, inc, zv, 0);
                ASSERT_TRUE(same_bits(k.dnrm2(n, x.data(), inc), model::dnrm2(n, x.data(), inc, p.order)))
                    << "dnrm2 n=" << n << " inc " << inc << " kind " << kind;
                ASSERT_TRUE(same_bits(k.dznrm2(n, z.data(), inc), model::dznrm2(n, z.data(), inc, p.order)))
                    << "dznrm2 n=" << n << " inc " << inc << " kind " << kind;
                ASSERT_TRUE(x.holds(xv));
                ASSERT_TRUE(z.holds(zv));
            }
}

// Coarse values: every partial sum is exact, so any order must give the sum
// of the definition; a wrong or missing element shows.
TEST_P(Orders, ExactSumsMatchTheDefinition)
{
    const PathCase p = GetParam();
    ORV_SKIP_UNLESS_SUPPORTED(p);
    const Kernels k(p);
    Rng rng(65);
    for (IncPair inc : kernel_inc_pairs())
        for (int n : kernel_sizes()) {
            const auto xv = stored_as(coarse_values(rng, n), inc.x), yv = coarse_values(rng, n);
            std::vector<zcomplex> zx(n), zy(n);
            for (int i = 0; i < n; ++i) zx[i] = rng.zcoarse(), zy[i] = rng.zcoarse();
            zx = stored_as(zx, inc.x);
            double dot = 0, asum = 0, zasum = 0, cr = 0, ci = 0, ur = 0, ui = 0;
            for (int i = 0; i < n; ++i) {
                dot += xv[i] * yv[i];
                asum += std::fabs(xv[i]);
                const double a = zx[i].real(), b = zx[i].imag(), c = zy[i].real(), d = zy[i].imag();
                zasum += std::fabs(a) + std::fabs(b);
                cr += a * c + b * d, ci += a * d - b * c, ur += a * c - b * d, ui += a * d + b * c;
            }
            Vec<double> x(n, inc.x, xv, 8), y(n, inc.y, yv, 0);
            Vec<zcomplex> cx(n, inc.x, zx, 0), cy(n, inc.y, zy, 0);
            ASSERT_EQ(k.ddot(n, x.data(), inc.x, y.data(), inc.y), dot) << "n=" << n;
            ASSERT_EQ(k.dasum(n, x.data(), inc.x), asum) << "n=" << n;
            ASSERT_EQ(k.dzasum(n, cx.data(), inc.x), zasum) << "n=" << n;
            ASSERT_EQ(k.zdot(true, n, cx.data(), inc.x, cy.data(), inc.y), zcomplex(cr, ci)) << "n=" << n;
            ASSERT_EQ(k.zdot(false, n, cx.data(), inc.x, cy.data(), inc.y), zcomplex(ur, ui)) << "n=" << n;
        }
}

// Empty vectors read nothing and give exact zeros.
TEST_P(Orders, EmptyVectorsGiveExactZeros)
{
    const PathCase p = GetParam();
    ORV_SKIP_UNLESS_SUPPORTED(p);
    const Kernels k(p);
    Vec<double> x(4, 1);
    Vec<zcomplex> z(4, 1);
    for (int n : {0, -1}) {
        EXPECT_TRUE(same_bits(k.ddot(n, x.data(), 1, x.data(), 1), 0.0));
        EXPECT_TRUE(same_bits(k.dasum(n, x.data(), 1), 0.0));
        EXPECT_TRUE(same_bits(k.dnrm2(n, x.data(), 1), 0.0));
        EXPECT_TRUE(same_bits(k.dzasum(n, z.data(), 1), 0.0));
        EXPECT_TRUE(same_bits(k.dznrm2(n, z.data(), 1), 0.0));
        EXPECT_TRUE(same_bits(k.zdot(true, n, z.data(), 1, z.data(), 1), zcomplex(0.0, 0.0)));
        EXPECT_TRUE(same_bits(k.zdot(false, n, z.data(), 1, z.data(), 1), zcomplex(0.0, 0.0)));
    }
}

INSTANTIATE_TEST_SUITE_P(Kernels, Orders, ::testing::ValuesIn(all_paths()), path_name);

}  // namespace
}  // namespace orvtest
