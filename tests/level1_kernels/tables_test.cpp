// Each build's table reaches its own path's kernels; the reproducible build
// is the baseline with the alignment-independent reductions.
#include <cstring>

#include "paths.h"

namespace orvtest {
namespace {

#define ORV_TEST_TABLE(ns)                                                                                    \
    orv::Level1Kernels                                                                                         \
    {                                                                                                          \
        .ddot = ns::ddot, .daxpy = ns::daxpy, .dscal = ns::dscal, .dcopy = ns::dcopy, .dswap = ns::dswap,      \
        .zdotc = ns::zdotc, .zdotu = ns::zdotu, .zaxpy = ns::zaxpy, .zscal = ns::zscal, .zdscal = ns::zdscal,  \
        .zcopy = ns::zcopy, .zswap = ns::zswap, .dnrm2 = ns::dnrm2, .dznrm2 = ns::dznrm2, .dasum = ns::dasum,  \
        .dzasum = ns::dzasum, .idamax = ns::idamax, .izamax = ns::izamax, .dcabs1 = ns::dcabs1,                \
        .drot = ns::drot, .drotm = ns::drotm, .zdrot = ns::zdrot, .drotg = ns::drotg, .drotmg = ns::drotmg,    \
        .zrotg = ns::zrotg,                                                                                    \
    }

::testing::AssertionResult same_table(const PathCase& p, const orv::Level1Kernels& want)
{
    if (std::memcmp(&Kernels(p).table(), &want, sizeof want) == 0) return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << p.name << " does not reach its own kernels";
}

TEST(Tables, EveryBuildReachesItsOwnKernels)
{
    const auto paths = all_paths();
    auto path = [&](orv::Build b) {
        for (const auto& p : paths)
            if (p.build == b) return p;
        return paths[0];
    };
    using orv::Build;
    EXPECT_TRUE(same_table(path(Build::def), ORV_TEST_TABLE(orv::def)));
    EXPECT_TRUE(same_table(path(Build::mc), ORV_TEST_TABLE(orv::mc)));
    EXPECT_TRUE(same_table(path(Build::mc3), ORV_TEST_TABLE(orv::mc3)));
    EXPECT_TRUE(same_table(path(Build::avx), ORV_TEST_TABLE(orv::avx)));
    EXPECT_TRUE(same_table(path(Build::avx2), ORV_TEST_TABLE(orv::avx2)));
    EXPECT_TRUE(same_table(path(Build::avx512_qix), ORV_TEST_TABLE(orv::avx512_qix)));
    EXPECT_TRUE(same_table(path(Build::avx512), ORV_TEST_TABLE(orv::avx512)));

    orv::Level1Kernels cnr = ORV_TEST_TABLE(orv::def);
    cnr.ddot = orv::cnr::ddot;
    cnr.dasum = orv::cnr::dasum;
    cnr.zdotc = orv::cnr::zdotc;
    cnr.zdotu = orv::cnr::zdotu;
    EXPECT_TRUE(same_table(path(Build::cnr), cnr));
}

}  // namespace
}  // namespace orvtest
