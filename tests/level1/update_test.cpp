// Element-wise updates through the exports: axpy, scal, copy and swap.
// (The rotations are in rot_test.cpp; their empty calls are checked here.)
// Each result element is compared bit for bit with the BLAS definition
// evaluated in the kernel's rounding (product rounded, then added), and
// every element a routine does not own must still hold its guard.
#include <bit>
#include <cmath>
#include <limits>

#include "level1_test.h"
#include "models.h"

namespace orvtest {
namespace {

class UpdateIncrements : public ::testing::TestWithParam<IncPair> {};

std::vector<int> placements(IncPair inc) { return unit_pair(inc) ? offsets() : std::vector<int>{0, 8}; }

TEST_P(UpdateIncrements, Daxpy)
{
    const IncPair inc = GetParam();
    Rng rng(21);
    const double alpha = rng.full();
    for (int n : level1_sizes()) {
        const auto xv = stored_as(random_values<double>(rng, n), inc.x), yv = random_values<double>(rng, n);
        auto want = yv;
        for (int i = 0; i < n; ++i) want[i] = model::axpy(alpha, xv[i], yv[i]);
        for (int ox : placements(inc))
            for (int oy : placements(inc)) {
                Vec<double> x(n, inc.x, xv, ox), y(n, inc.y, yv, oy);
                daxpy_(&n, &alpha, x.data(), &inc.x, y.data(), &inc.y);
                ASSERT_TRUE(y.holds(want)) << "n=" << n << " at +" << ox << ",+" << oy;
                ASSERT_TRUE(x.holds(xv));
            }
    }
}

TEST_P(UpdateIncrements, Zaxpy)
{
    const IncPair inc = GetParam();
    Rng rng(22);
    const zcomplex alpha = rng.zfull();
    const double ar = alpha.real(), ai = alpha.imag();
    for (int n : level1_sizes()) {
        const auto xv = stored_as(random_values<zcomplex>(rng, n), inc.x), yv = random_values<zcomplex>(rng, n);
        auto want = yv;
        for (int i = 0; i < n; ++i) {
            const double xr = xv[i].real(), xi = xv[i].imag();
            want[i] = {(yv[i].real() + xr * ar) - xi * ai, (yv[i].imag() + xi * ar) + xr * ai};
        }
        for (int ox : placements(inc)) {
            Vec<zcomplex> x(n, inc.x, xv, ox), y(n, inc.y, yv, ox);
            zaxpy_(&n, &alpha, x.data(), &inc.x, y.data(), &inc.y);
            ASSERT_TRUE(y.holds(want)) << "n=" << n << " at +" << ox;
            ASSERT_TRUE(x.holds(xv));
        }
    }
}

TEST_P(UpdateIncrements, CopyAndSwapMoveBitPatterns)
{
    const IncPair inc = GetParam();
    Rng rng(23);
    for (int n : level1_sizes()) {
        // A signalling-NaN payload must survive the moves unchanged.
        auto xv = random_values<double>(rng, n);
        if (n > 2) xv[n / 2] = std::bit_cast<double>(0x7ff0000000000123ull);
        xv = stored_as(xv, inc.x);
        const auto yv = random_values<double>(rng, n);
        const auto zx = stored_as(random_values<zcomplex>(rng, n), inc.x), zy = random_values<zcomplex>(rng, n);
        for (int ox : placements(inc))
            for (int oy : placements(inc)) {
                Vec<double> x(n, inc.x, xv, ox), y(n, inc.y, yv, oy);
                dcopy_(&n, x.data(), &inc.x, y.data(), &inc.y);
                ASSERT_TRUE(y.holds(xv)) << "dcopy n=" << n << " at +" << ox << ",+" << oy;
                ASSERT_TRUE(x.holds(xv));
                Vec<zcomplex> cx(n, inc.x, zx, ox), cy(n, inc.y, zy, oy);
                zcopy_(&n, cx.data(), &inc.x, cy.data(), &inc.y);
                ASSERT_TRUE(cy.holds(zx)) << "zcopy n=" << n << " at +" << ox << ",+" << oy;
                ASSERT_TRUE(cx.holds(zx));
                if (inc.x == 0) continue;  // swapping with a zero step has no definite result

                y.set(yv);
                dswap_(&n, x.data(), &inc.x, y.data(), &inc.y);
                ASSERT_TRUE(x.holds(yv)) << "dswap n=" << n << " at +" << ox << ",+" << oy;
                ASSERT_TRUE(y.holds(xv)) << "dswap n=" << n << " at +" << ox << ",+" << oy;
                cy.set(zy);
                zswap_(&n, cx.data(), &inc.x, cy.data(), &inc.y);
                ASSERT_TRUE(cx.holds(zy)) << "zswap n=" << n << " at +" << ox << ",+" << oy;
                ASSERT_TRUE(cy.holds(zx)) << "zswap n=" << n << " at +" << ox << ",+" << oy;
            }
    }
}

INSTANTIATE_TEST_SUITE_P(Level1, UpdateIncrements, ::testing::ValuesIn(inc_pairs()), inc_pair_name);

class ScalIncrements : public ::testing::TestWithParam<int> {};

TEST_P(ScalIncrements, ScaleEveryElement)
{
    const int inc = GetParam();
    Rng rng(24);
    const double alpha = rng.full();
    const zcomplex zalpha = rng.zfull();
    for (int n : level1_sizes()) {
        const auto xv = random_values<double>(rng, n);
        const auto zv = random_values<zcomplex>(rng, n);
        std::vector<double> want(xv.size());
        std::vector<zcomplex> zwant(zv.size()), dwant(zv.size());
        for (int i = 0; i < n; ++i) {
            want[i] = alpha * xv[i];
            const double xr = zv[i].real(), xi = zv[i].imag();
            zwant[i] = {xr * zalpha.real() - xi * zalpha.imag(), xi * zalpha.real() + xr * zalpha.imag()};
            dwant[i] = {alpha * xr, alpha * xi};
        }
        for (int off : inc == 1 || inc == -1 ? offsets() : std::vector<int>{0, 8}) {
            Vec<double> x(n, inc, xv, off);
            dscal_(&n, &alpha, x.data(), &inc);
            ASSERT_TRUE(x.holds(want)) << "dscal n=" << n << " at +" << off;
            Vec<zcomplex> z(n, inc, zv, off), d(n, inc, zv, off);
            zscal_(&n, &zalpha, z.data(), &inc);
            zdscal_(&n, &alpha, d.data(), &inc);
            ASSERT_TRUE(z.holds(zwant)) << "zscal n=" << n << " at +" << off;
            ASSERT_TRUE(d.holds(dwant)) << "zdscal n=" << n << " at +" << off;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Level1, ScalIncrements, ::testing::Values(1, -1, 2, -3),
                         [](const auto& info) { return inc_name(info.param); });

// alpha = 0 still multiplies: infinities and NaNs become NaNs, finite values
// become zeros of the product's sign.
TEST(Scal, ZeroAlphaMultipliesToo)
{
    const double inf = std::numeric_limits<double>::infinity();
    const std::vector<double> xv{1.0, inf, -2.0, std::numeric_limits<double>::quiet_NaN(), -inf};
    const int n = 5, one = 1;
    const double zero = 0.0;
    Vec<double> x(n, 1, xv);
    dscal_(&n, &zero, x.data(), &one);
    const auto got = x.values();
    EXPECT_TRUE(same_bits(got[0], 0.0));
    EXPECT_TRUE(std::isnan(got[1]));
    EXPECT_TRUE(same_bits(got[2], -0.0));
    EXPECT_TRUE(std::isnan(got[3]));
    EXPECT_TRUE(std::isnan(got[4]));

    const zcomplex zzero(0.0, 0.0);
    Vec<zcomplex> z(2, 1, {zcomplex(inf, 1.0), zcomplex(1.0, 1.0)});
    const int two = 2;
    zscal_(&two, &zzero, z.data(), &one);
    EXPECT_TRUE(std::isnan(z(0).real()));
    EXPECT_EQ(z(1), zcomplex(0.0, 0.0));
}

// With a zero increment x(1) is scaled n times.
TEST(Scal, ZeroStepScalesOneElementNTimes)
{
    const int n = 5, zero = 0;
    const double alpha = 2.0;
    Vec<double> x(n, 0, std::vector<double>(n, 3.0));
    dscal_(&n, &alpha, x.data(), &zero);
    EXPECT_TRUE(x.holds({96.0}));
}

// The baseline rounds the product before the addition and drops the 2^-60;
// the fused multiply-add of the FMA paths keeps it.
TEST(Axpy, ProductIsRoundedBeforeTheAddition)
{
    const double alpha = 1.0 + 0x1p-30;
    for (int n : {1, 2, 3, 17, 40}) {
        const int one = 1;
        const std::vector<double> xv(n, 1.0 + 0x1p-30);
        Vec<double> x(n, 1, xv), y(n, 1, std::vector<double>(n, -1.0));
        daxpy_(&n, &alpha, x.data(), &one, y.data(), &one);
        const double want = model::fused() ? 0x1p-29 + 0x1p-60 : 0x1p-29;
        EXPECT_TRUE(y.holds(std::vector<double>(n, want))) << n;
    }
}

// A zero alpha (of either sign) is the only quick return: y keeps even its
// NaNs; a NaN alpha reaches every element.
TEST(Axpy, ZeroAlphaLeavesYUntouchedAndNaNAlphaPropagates)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const int n = 9, one = 1, two = 2;
    const std::vector<double> xv(n, 1.0);
    std::vector<double> yv(n, 4.0);
    yv[3] = nan;
    for (double alpha : {0.0, -0.0}) {
        Vec<double> x(n, 1, xv), y(n, 2, yv);
        daxpy_(&n, &alpha, x.data(), &one, y.data(), &two);
        EXPECT_TRUE(y.holds(yv));
    }
    Vec<double> x(n, 1, xv), y(n, 2, yv);
    daxpy_(&n, &nan, x.data(), &one, y.data(), &two);
    for (double v : y.values()) EXPECT_TRUE(std::isnan(v));

    const std::vector<zcomplex> zx(n, {1.0, 1.0}), zy(n, {nan, 4.0});
    Vec<zcomplex> cx(n, 1, zx), cy(n, 1, zy);
    const zcomplex zzero(-0.0, 0.0);
    zaxpy_(&n, &zzero, cx.data(), &one, cy.data(), &one);
    EXPECT_TRUE(cy.holds(zy));
    const zcomplex imag_only(0.0, 1.0);
    zaxpy_(&n, &imag_only, cx.data(), &one, cy.data(), &one);
    EXPECT_EQ(cy(n - 1).imag(), 5.0);
}

// Copies whose destination is too large for the caches take the
// non-temporal store loop: the same bits, the head before the first aligned
// vector and the tail after the last one included, nothing written outside.
TEST(Copy, LargeCopiesMatchBitForBit)
{
    Rng rng(25);
    const int one = 1, minus_one = -1;
    const int n = (16 << 20) / 8 + 13;  // just past the streaming threshold, odd tail
    auto xv = random_values<double>(rng, n);
    xv[n / 3] = std::bit_cast<double>(0x7ff0000000000123ull);  // NaN payloads move as bits
    for (int oy : {0, 8, 24}) {
        Vec<double> x(n, 1, xv, 8), y(n, 1, oy);
        dcopy_(&n, x.data(), &one, y.data(), &one);
        ASSERT_TRUE(y.holds(xv)) << "dcopy at +" << oy;
        Vec<double> xb(n, -1, xv, 8), yb(n, -1, oy);
        dcopy_(&n, xb.data(), &minus_one, yb.data(), &minus_one);  // both backwards: copied as forwards
        ASSERT_TRUE(yb.holds(xv)) << "dcopy backwards at +" << oy;
    }
    const int zn = (16 << 20) / 16 + 5;
    const auto zv = random_values<zcomplex>(rng, zn);
    Vec<zcomplex> zx(zn, 1, zv, 0), zy(zn, 1, 8);
    zcopy_(&zn, zx.data(), &one, zy.data(), &one);
    ASSERT_TRUE(zy.holds(zv));
}

// Non-positive lengths touch nothing, whatever the other arguments.
TEST(Update, NonPositiveLengthsTouchNothing)
{
    Vec<double> x(8, 1), y(8, 1);
    Vec<zcomplex> zx(8, 1), zy(8, 1);
    const double alpha = 2.0;
    const zcomplex zalpha(2.0, 1.0);
    const double param[5] = {-1, 1, 2, 3, 4};
    const int one = 1;
    for (int n : {0, -1, -5}) {
        daxpy_(&n, &alpha, x.data(), &one, y.data(), &one);
        dscal_(&n, &alpha, x.data(), &one);
        dcopy_(&n, x.data(), &one, y.data(), &one);
        dswap_(&n, x.data(), &one, y.data(), &one);
        zaxpy_(&n, &zalpha, zx.data(), &one, zy.data(), &one);
        zscal_(&n, &zalpha, zx.data(), &one);
        zdscal_(&n, &alpha, zx.data(), &one);
        zcopy_(&n, zx.data(), &one, zy.data(), &one);
        zswap_(&n, zx.data(), &one, zy.data(), &one);
        drot_(&n, x.data(), &one, y.data(), &one, &alpha, &alpha);
        drotm_(&n, x.data(), &one, y.data(), &one, param);
        zdrot_(&n, zx.data(), &one, zy.data(), &one, &alpha, &alpha);
    }
    const Vec<double> fresh(8, 1);
    EXPECT_TRUE(x.holds(fresh.values()));
    EXPECT_TRUE(y.holds(fresh.values()));
    const Vec<zcomplex> zfresh(8, 1);
    EXPECT_TRUE(zx.holds(zfresh.values()));
    EXPECT_TRUE(zy.holds(zfresh.values()));
}

}  // namespace
}  // namespace orvtest
