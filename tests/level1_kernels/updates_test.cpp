// The element-wise kernels of every build: each result element bit for bit
// against its definition in the build's rounding, everything between and
// around the elements untouched, and the quick returns.
#include <bit>
#include <cmath>
#include <limits>

#include "paths.h"

namespace orvtest {
namespace {

const double kNaN = std::numeric_limits<double>::quiet_NaN();
const double kInf = std::numeric_limits<double>::infinity();

class Updates : public ::testing::TestWithParam<PathCase> {};

std::vector<int> placements(IncPair inc) { return unit_pair(inc) ? offsets() : std::vector<int>{0, 8}; }

// The pairs whose x may be written (no zero step).
std::vector<IncPair> writable_inc_pairs()
{
    std::vector<IncPair> pairs;
    for (IncPair p : kernel_inc_pairs())
        if (p.x != 0) pairs.push_back(p);
    return pairs;
}

TEST_P(Updates, Axpy)
{
    const PathCase p = GetParam();
    ORV_SKIP_UNLESS_SUPPORTED(p);
    const auto& k = Kernels(p).table();
    Rng rng(71);
    const double alpha = rng.full();
    const zcomplex za = rng.zfull();
    const dcomplex zalpha{za.real(), za.imag()};
    for (IncPair inc : kernel_inc_pairs()) {
        const i64 incx = inc.x, incy = inc.y;
        for (int n : kernel_sizes()) {
            const i64 n64 = n;
            const auto xv = stored_as(random_values<double>(rng, n), inc.x), yv = random_values<double>(rng, n);
            const auto zx = stored_as(random_values<zcomplex>(rng, n), inc.x), zy = random_values<zcomplex>(rng, n);
            auto want = yv;
            auto zwant = zy;
            for (int i = 0; i < n; ++i) {
                want[i] = model::axpy(alpha, xv[i], yv[i], p.order);
                const double xr = zx[i].real(), xi = zx[i].imag();
                zwant[i] = {(zy[i].real() + xr * za.real()) - xi * za.imag(),
                            (zy[i].imag() + xi * za.real()) + xr * za.imag()};
            }
            for (int ox : placements(inc))
                for (int oy : placements(inc)) {
                    Vec<double> x(n, inc.x, xv, ox), y(n, inc.y, yv, oy);
                    k.daxpy(&n64, &alpha, x.data(), &incx, y.data(), &incy);
                    ASSERT_TRUE(y.holds(want)) << "daxpy n=" << n << " inc " << inc.x << "," << inc.y << " at +"
                                               << ox << ",+" << oy;
                    ASSERT_TRUE(x.holds(xv));
                    Vec<zcomplex> cx(n, inc.x, zx, ox), cy(n, inc.y, zy, oy);
                    k.zaxpy(&n64, &zalpha, Kernels::z(cx.data()), &incx, Kernels::z(cy.data()), &incy);
                    ASSERT_TRUE(cy.holds(zwant)) << "zaxpy n=" << n << " inc " << inc.x << "," << inc.y;
                    ASSERT_TRUE(cx.holds(zx));
                }
        }
    }
}

// A zero alpha of either sign leaves y untouched, even its NaNs; a NaN
// alpha reaches every element.
TEST_P(Updates, AxpyQuickReturnOnlyForZeroAlpha)
{
    const PathCase p = GetParam();
    ORV_SKIP_UNLESS_SUPPORTED(p);
    const auto& k = Kernels(p).table();
    const i64 n = 37, one = 1;
    const std::vector<double> xv(n, 1.0);
    std::vector<double> yv(n, 4.0);
    yv[5] = kNaN;
    for (double alpha : {0.0, -0.0}) {
        Vec<double> x(n, 1, xv), y(n, 1, yv);
        k.daxpy(&n, &alpha, x.data(), &one, y.data(), &one);
        EXPECT_TRUE(y.holds(yv));
        const dcomplex zalpha{alpha, -0.0};
        Vec<zcomplex> cx(n, 1, std::vector<zcomplex>(n, {1, 1})), cy(n, 1, std::vector<zcomplex>(n, {kNaN, 2}));
        k.zaxpy(&n, &zalpha, Kernels::z(cx.data()), &one, Kernels::z(cy.data()), &one);
        EXPECT_TRUE(cy.holds(std::vector<zcomplex>(n, {kNaN, 2})));
    }
    Vec<double> x(n, 1, xv), y(n, 1, std::vector<double>(n, 4.0));
    k.daxpy(&n, &kNaN, x.data(), &one, y.data(), &one);
    for (double v : y.values()) EXPECT_TRUE(std::isnan(v));
}

// The fused builds round alpha*x + y once: with x = alpha = 1 + 2^-30 and
// y = -1 the exact 2^-29 + 2^-60 survives; the others drop the 2^-60.
TEST_P(Updates, AxpyRoundsAsItsBuildFuses)
{
    const PathCase p = GetParam();
    ORV_SKIP_UNLESS_SUPPORTED(p);
    const auto& k = Kernels(p).table();
    const double alpha = 1.0 + 0x1p-30;
    const double want = model::fused(p.order) ? 0x1p-29 + 0x1p-60 : 0x1p-29;
    for (i64 n : {1, 3, 17, 40, 129}) {
        const i64 one = 1;
        Vec<double> x(n, 1, std::vector<double>(n, alpha)), y(n, 1, std::vector<double>(n, -1.0));
        k.daxpy(&n, &alpha, x.data(), &one, y.data(), &one);
        EXPECT_TRUE(y.holds(std::vector<double>(n, want))) << n;
    }
}

TEST_P(Updates, Scal)
{
    const PathCase p = GetParam();
    ORV_SKIP_UNLESS_SUPPORTED(p);
    const auto& k = Kernels(p).table();
    Rng rng(72);
    const double alpha = rng.full();
    const zcomplex za = rng.zfull();
    const dcomplex zalpha{za.real(), za.imag()};
    for (int inc : {1, -1, 2, -3}) {
        const i64 inc64 = inc;
        for (int n : kernel_sizes()) {
            const i64 n64 = n;
            const auto xv = random_values<double>(rng, n);
            const auto zv = random_values<zcomplex>(rng, n);
            std::vector<double> want(n);
            std::vector<zcomplex> zwant(n), dwant(n);
            for (int i = 0; i < n; ++i) {
                want[i] = alpha * xv[i];
                const double xr = zv[i].real(), xi = zv[i].imag();
                zwant[i] = {xr * za.real() - xi * za.imag(), xi * za.real() + xr * za.imag()};
                dwant[i] = {alpha * xr, alpha * xi};
            }
            for (int off : placements({inc, inc})) {
                Vec<double> x(n, inc, xv, off);
                k.dscal(&n64, &alpha, x.data(), &inc64);
                ASSERT_TRUE(x.holds(want)) << "dscal n=" << n << " inc " << inc << " at +" << off;
                Vec<zcomplex> z(n, inc, zv, off), d(n, inc, zv, off);
                k.zscal(&n64, &zalpha, Kernels::z(z.data()), &inc64);
                k.zdscal(&n64, &alpha, Kernels::z(d.data()), &inc64);
                ASSERT_TRUE(z.holds(zwant)) << "zscal n=" << n << " inc " << inc << " at +" << off;
                ASSERT_TRUE(d.holds(dwant)) << "zdscal n=" << n << " inc " << inc << " at +" << off;
            }
        }
    }
}

// Scaling always multiplies: 0 * inf is NaN, and a zero step scales x(1)
// n times.
TEST_P(Updates, ScalAlwaysMultiplies)
{
    const PathCase p = GetParam();
    ORV_SKIP_UNLESS_SUPPORTED(p);
    const auto& k = Kernels(p).table();
    const i64 n = 5, one = 1, zero = 0;
    const double nought = 0.0, two = 2.0;
    Vec<double> x(n, 1, {1.0, kInf, -2.0, kNaN, -kInf});
    k.dscal(&n, &nought, x.data(), &one);
    const auto got = x.values();
    EXPECT_TRUE(same_bits(got[0], 0.0));
    EXPECT_TRUE(std::isnan(got[1]));
    EXPECT_TRUE(same_bits(got[2], -0.0));
    EXPECT_TRUE(std::isnan(got[3]) && std::isnan(got[4]));
    Vec<double> y(n, 0, std::vector<double>(n, 3.0));
    k.dscal(&n, &two, y.data(), &zero);
    EXPECT_TRUE(y.holds({96.0}));
}

TEST_P(Updates, CopyAndSwapMoveBitPatterns)
{
    const PathCase p = GetParam();
    ORV_SKIP_UNLESS_SUPPORTED(p);
    const auto& k = Kernels(p).table();
    Rng rng(73);
    for (IncPair inc : kernel_inc_pairs()) {
        const i64 incx = inc.x, incy = inc.y;
        for (int n : kernel_sizes()) {
            const i64 n64 = n;
            auto xv = random_values<double>(rng, n);
            if (n > 2) xv[n / 2] = std::bit_cast<double>(0x7ff0000000000123ull);  // signalling NaN
            xv = stored_as(xv, inc.x);
            const auto yv = random_values<double>(rng, n);
            const auto zx = stored_as(random_values<zcomplex>(rng, n), inc.x), zy = random_values<zcomplex>(rng, n);
            for (int ox : placements(inc))
                for (int oy : placements(inc)) {
                    Vec<double> x(n, inc.x, xv, ox), y(n, inc.y, yv, oy);
                    k.dcopy(&n64, x.data(), &incx, y.data(), &incy);
                    ASSERT_TRUE(y.holds(xv)) << "dcopy n=" << n << " inc " << inc.x << "," << inc.y;
                    ASSERT_TRUE(x.holds(xv));
                    Vec<zcomplex> cx(n, inc.x, zx, ox), cy(n, inc.y, zy, oy);
                    k.zcopy(&n64, Kernels::z(cx.data()), &incx, Kernels::z(cy.data()), &incy);
                    ASSERT_TRUE(cy.holds(zx)) << "zcopy n=" << n << " inc " << inc.x << "," << inc.y;
                    if (inc.x == 0) continue;  // a swap with a zero step has no definite result
                    y.set(yv);
                    k.dswap(&n64, x.data(), &incx, y.data(), &incy);
                    ASSERT_TRUE(x.holds(yv) && y.holds(xv)) << "dswap n=" << n << " inc " << inc.x << "," << inc.y;
                    cy.set(zy);
                    k.zswap(&n64, Kernels::z(cx.data()), &incx, Kernels::z(cy.data()), &incy);
                    ASSERT_TRUE(cx.holds(zy) && cy.holds(zx)) << "zswap n=" << n << " inc " << inc.x << "," << inc.y;
                }
        }
    }
}

TEST_P(Updates, Rotations)
{
    const PathCase p = GetParam();
    ORV_SKIP_UNLESS_SUPPORTED(p);
    const auto& k = Kernels(p).table();
    Rng rng(74);
    const double c = rng.full(), s = rng.full();
    for (IncPair inc : writable_inc_pairs()) {
        const i64 incx = inc.x, incy = inc.y;
        for (int n : kernel_sizes()) {
            const i64 n64 = n;
            const auto xv = random_values<double>(rng, n), yv = random_values<double>(rng, n);
            const auto zx = random_values<zcomplex>(rng, n), zy = random_values<zcomplex>(rng, n);
            std::vector<double> wx(n), wy(n);
            std::vector<zcomplex> zwx(n), zwy(n);
            for (int i = 0; i < n; ++i) {
                const auto r = model::rot(c, s, xv[i], yv[i], p.order);
                const auto re = model::rot(c, s, zx[i].real(), zy[i].real(), p.order);
                const auto im = model::rot(c, s, zx[i].imag(), zy[i].imag(), p.order);
                wx[i] = r.x, wy[i] = r.y, zwx[i] = {re.x, im.x}, zwy[i] = {re.y, im.y};
            }
            for (int ox : placements(inc))
                for (int oy : {0, 8}) {
                    Vec<double> x(n, inc.x, xv, ox), y(n, inc.y, yv, oy);
                    k.drot(&n64, x.data(), &incx, y.data(), &incy, &c, &s);
                    ASSERT_TRUE(x.holds(wx) && y.holds(wy)) << "drot n=" << n << " inc " << inc.x << "," << inc.y
                                                            << " at +" << ox << ",+" << oy;
                    Vec<zcomplex> cx(n, inc.x, zx, ox), cy(n, inc.y, zy, oy);
                    k.zdrot(&n64, Kernels::z(cx.data()), &incx, Kernels::z(cy.data()), &incy, &c, &s);
                    ASSERT_TRUE(cx.holds(zwx) && cy.holds(zwy)) << "zdrot n=" << n << " inc " << inc.x << ","
                                                                << inc.y << " at +" << ox << ",+" << oy;
                }
        }
    }
}

TEST_P(Updates, ModifiedRotationsOfEveryFlag)
{
    const PathCase p = GetParam();
    ORV_SKIP_UNLESS_SUPPORTED(p);
    const auto& k = Kernels(p).table();
    Rng rng(75);
    for (double flag : {-1.0, 0.0, 1.0, -2.0}) {
        // Entries the flag leaves implicit hold NaN: reading one would show.
        double param[5] = {flag, kNaN, kNaN, kNaN, kNaN};
        if (flag == -1) param[1] = rng.full(), param[2] = rng.full(), param[3] = rng.full(), param[4] = rng.full();
        if (flag == 0) param[2] = rng.full(), param[3] = rng.full();
        if (flag == 1) param[1] = rng.full(), param[4] = rng.full();
        for (IncPair inc : writable_inc_pairs()) {
            const i64 incx = inc.x, incy = inc.y;
            for (int n : kernel_sizes()) {
                const i64 n64 = n;
                const auto xv = random_values<double>(rng, n), yv = random_values<double>(rng, n);
                std::vector<double> wx = xv, wy = yv;
                for (int i = 0; i < n; ++i) {
                    model::Rotated r{xv[i], yv[i]};
                    if (flag == -1) r = model::rotm_full(param[1], param[2], param[3], param[4], xv[i], yv[i], p.order);
                    if (flag == 0) r = model::rotm_off_diagonal(param[2], param[3], xv[i], yv[i], p.order);
                    if (flag == 1) r = model::rotm_diagonal(param[1], param[4], xv[i], yv[i], p.order);
                    wx[i] = r.x, wy[i] = r.y;
                }
                for (int ox : placements(inc)) {
                    Vec<double> x(n, inc.x, xv, ox), y(n, inc.y, yv, 8);
                    k.drotm(&n64, x.data(), &incx, y.data(), &incy, param);
                    ASSERT_TRUE(x.holds(wx) && y.holds(wy)) << "flag " << flag << " n=" << n << " inc " << inc.x
                                                            << "," << inc.y << " at +" << ox;
                }
            }
        }
    }
}

// Copies whose destination is too large for the caches take the
// non-temporal store loop: the same bits, the head before the first aligned
// vector and the tail after the last one included, nothing written outside.
TEST_P(Updates, LargeCopiesMatchBitForBit)
{
    const PathCase p = GetParam();
    ORV_SKIP_UNLESS_SUPPORTED(p);
    const auto& k = Kernels(p).table();
    Rng rng(77);
    const i64 one = 1, minus_one = -1;
    const long n = (16L << 20) / 8 + 13;  // just past the streaming threshold, odd tail
    auto xv = random_values<double>(rng, n);
    xv[n / 3] = std::bit_cast<double>(0x7ff0000000000123ull);  // NaN payloads move as bits
    const i64 n64 = n;
    for (int oy : {0, 8, 24}) {
        Vec<double> x(n, 1, xv, 8), y(n, 1, oy);
        k.dcopy(&n64, x.data(), &one, y.data(), &one);
        ASSERT_TRUE(y.holds(xv)) << "dcopy at +" << oy;
        Vec<double> xb(n, -1, xv, 8), yb(n, -1, oy);
        k.dcopy(&n64, xb.data(), &minus_one, yb.data(), &minus_one);  // both backwards: copied as forwards
        ASSERT_TRUE(yb.holds(xv)) << "dcopy backwards at +" << oy;
    }
    const long zn = (16L << 20) / 16 + 5;
    const auto zv = random_values<zcomplex>(rng, zn);
    const i64 zn64 = zn;
    Vec<zcomplex> zx(zn, 1, zv, 0), zy(zn, 1, 8);
    k.zcopy(&zn64, Kernels::z(zx.data()), &one, Kernels::z(zy.data()), &one);
    ASSERT_TRUE(zy.holds(zv));
}

// Non-positive lengths touch nothing.
TEST_P(Updates, EmptyVectorsAreNotTouched)
{
    const PathCase p = GetParam();
    ORV_SKIP_UNLESS_SUPPORTED(p);
    const auto& k = Kernels(p).table();
    const double one_d = 1.0, param[5] = {-1, 2, 3, 4, 5};
    const dcomplex zone{1, 1};
    const i64 one = 1;
    Vec<double> x(3, 1, {1, 2, 3}), y(3, 1, {4, 5, 6});
    Vec<zcomplex> zx(3, 1, {{1, 2}, {3, 4}, {5, 6}}), zy(3, 1, {{7, 8}, {9, 1}, {2, 3}});
    const auto sx = x.values(), sy = y.values();
    const auto szx = zx.values(), szy = zy.values();
    for (i64 n : {0, -2}) {
        k.daxpy(&n, &one_d, x.data(), &one, y.data(), &one);
        k.dscal(&n, &one_d, x.data(), &one);
        k.dcopy(&n, x.data(), &one, y.data(), &one);
        k.dswap(&n, x.data(), &one, y.data(), &one);
        k.drot(&n, x.data(), &one, y.data(), &one, &one_d, &one_d);
        k.drotm(&n, x.data(), &one, y.data(), &one, param);
        dcomplex* cx = Kernels::z(zx.data());
        dcomplex* cy = Kernels::z(zy.data());
        k.zaxpy(&n, &zone, cx, &one, cy, &one);
        k.zscal(&n, &zone, cx, &one);
        k.zdscal(&n, &one_d, cx, &one);
        k.zcopy(&n, cx, &one, cy, &one);
        k.zswap(&n, cx, &one, cy, &one);
        k.zdrot(&n, cx, &one, cy, &one, &one_d, &one_d);
    }
    EXPECT_TRUE(x.holds(sx) && y.holds(sy));
    EXPECT_TRUE(zx.holds(szx) && zy.holds(szy));
}

INSTANTIATE_TEST_SUITE_P(Kernels, Updates, ::testing::ValuesIn(all_paths()), path_name);

}  // namespace
}  // namespace orvtest
