// The alignment-independent reductions of the reproducible build, called
// directly: the same bits at every placement of the arrays, equal to the
// baseline order without peeling, and equal to the baseline kernel wherever
// the baseline peels nothing (arrays on 16-byte boundaries).
#include "level1/kernels.h"
#include "../level1/level1_test.h"
#include "../level1/models.h"

namespace orvtest {
namespace {

double compatible_ddot(long n, const double* x, long incx, const double* y, long incy)
{
    const orv::i64 n64 = n, incx64 = incx, incy64 = incy;
    return orv::cnr::ddot(&n64, x, &incx64, y, &incy64);
}
double baseline_ddot(long n, const double* x, long incx, const double* y, long incy)
{
    const orv::i64 n64 = n, incx64 = incx, incy64 = incy;
    return orv::def::ddot(&n64, x, &incx64, y, &incy64);
}

class CompatibleDdot : public ::testing::TestWithParam<IncPair> {};

TEST_P(CompatibleDdot, SameBitsAtEveryPlacement)
{
    const IncPair inc = GetParam();
    Rng rng(51);
    for (int n : level1_sizes()) {
        const auto xv = stored_as(random_values<double>(rng, n), inc.x), yv = random_values<double>(rng, n);
        Vec<double> x0(n, inc.x, xv), y0(n, inc.y, yv);
        const double first = compatible_ddot(n, x0.data(), inc.x, y0.data(), inc.y);
        ASSERT_TRUE(same_bits(first, model::ddot(n, x0.data(), inc.x, y0.data(), inc.y, model::Peel::kNever)))
            << "n=" << n;
        // Both 16-byte aligned: the baseline kernel peels nothing either.
        ASSERT_TRUE(same_bits(first, baseline_ddot(n, x0.data(), inc.x, y0.data(), inc.y))) << "n=" << n;
        for (int ox : offsets())
            for (int oy : offsets()) {
                Vec<double> x(n, inc.x, xv, ox), y(n, inc.y, yv, oy);
                ASSERT_TRUE(same_bits(compatible_ddot(n, x.data(), inc.x, y.data(), inc.y), first))
                    << "n=" << n << " at +" << ox << ",+" << oy;
                ASSERT_TRUE(x.holds(xv));
                ASSERT_TRUE(y.holds(yv));
            }
    }
}

// dasum, zdotc and zdotu likewise; the strided orders never depended on
// placement.
TEST_P(CompatibleDdot, SumsAndComplexDotsAtEveryPlacement)
{
    const IncPair inc = GetParam();
    const orv::i64 incx = inc.x, incy = inc.y;
    Rng rng(53);
    for (int n : level1_sizes()) {
        const orv::i64 n64 = n;
        const auto xv = stored_as(random_values<double>(rng, n), inc.x);
        const auto zx = stored_as(random_values<zcomplex>(rng, n), inc.x), zy = random_values<zcomplex>(rng, n);
        auto zdot = [&](auto f, Vec<zcomplex>& x, Vec<zcomplex>& y) {
            orv::dcomplex r{guard_value(), guard_value()};
            f(&r, &n64, reinterpret_cast<const orv::dcomplex*>(x.data()), &incx,
              reinterpret_cast<const orv::dcomplex*>(y.data()), &incy);
            return zcomplex(r.re, r.im);
        };
        Vec<double> x0(n, inc.x, xv);
        Vec<zcomplex> cx0(n, inc.x, zx), cy0(n, inc.y, zy);
        const double asum = orv::cnr::dasum(&n64, x0.data(), &incx);
        const zcomplex c = zdot(orv::cnr::zdotc, cx0, cy0), u = zdot(orv::cnr::zdotu, cx0, cy0);
        ASSERT_TRUE(same_bits(asum, orv::def::dasum(&n64, x0.data(), &incx))) << "n=" << n;
        ASSERT_TRUE(same_bits(c, zdot(orv::def::zdotc, cx0, cy0))) << "n=" << n;
        ASSERT_TRUE(same_bits(u, zdot(orv::def::zdotu, cx0, cy0))) << "n=" << n;
        for (int ox : offsets()) {
            Vec<double> x(n, inc.x, xv, ox);
            ASSERT_TRUE(same_bits(orv::cnr::dasum(&n64, x.data(), &incx), asum)) << "n=" << n << " at +" << ox;
            ASSERT_TRUE(x.holds(xv));
            for (int oy : {0, 8}) {
                Vec<zcomplex> cx(n, inc.x, zx, ox), cy(n, inc.y, zy, oy);
                ASSERT_TRUE(same_bits(zdot(orv::cnr::zdotc, cx, cy), c)) << "n=" << n << " at +" << ox << ",+" << oy;
                ASSERT_TRUE(same_bits(zdot(orv::cnr::zdotu, cx, cy), u)) << "n=" << n << " at +" << ox << ",+" << oy;
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Kernels, CompatibleDdot, ::testing::ValuesIn(inc_pairs()), inc_pair_name);

TEST(CompatibleDdotEdges, EmptyVectorsGiveExactZero)
{
    Vec<double> x(4, 1), y(4, 1);
    for (long n : {0L, -1L, -3L}) EXPECT_TRUE(same_bits(compatible_ddot(n, x.data(), 1, y.data(), 1), 0.0)) << n;
}

// The reason for the variant: the baseline kernel's bits do move with the
// placement of the arrays. 17 elements, one peeled element at +8 bytes.
TEST(CompatibleDdotEdges, BaselineDependsOnPlacementWhereCompatibleDoesNot)
{
    Rng rng(52);
    bool baseline_moved = false;
    for (int trial = 0; trial < 20 && !baseline_moved; ++trial) {
        const auto xv = random_values<double>(rng, 17), yv = random_values<double>(rng, 17);
        Vec<double> xa(17, 1, xv, 0), ya(17, 1, yv, 0), xb(17, 1, xv, 8), yb(17, 1, yv, 8);
        baseline_moved = !same_bits(baseline_ddot(17, xa.data(), 1, ya.data(), 1),
                                    baseline_ddot(17, xb.data(), 1, yb.data(), 1));
        EXPECT_TRUE(same_bits(compatible_ddot(17, xa.data(), 1, ya.data(), 1),
                              compatible_ddot(17, xb.data(), 1, yb.data(), 1)));
    }
    EXPECT_TRUE(baseline_moved);
}

}  // namespace
}  // namespace orvtest
