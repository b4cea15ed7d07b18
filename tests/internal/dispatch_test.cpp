// Code-path dispatch: which build each code path installs, the first call
// filling the slot, and the unusable codes ending the process.
#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <thread>
#include <vector>

#include "child_process.h"
#include "code_paths.h"
#include "level1/dispatch.h"
#include "level2/dispatch.h"

namespace {

using orv::Build;
using orvtest::ChildResult;
using orvtest::run_child;

TEST(Dispatch, BuildOfEveryCodePath)
{
    const struct {
        int code;
        int branch;
        bool usable;
        Build build;
    } cases[] = {
        {7, 1, true, Build::avx512},  {7, 12, true, Build::avx512},     {6, 1, true, Build::avx512_qix},
        {5, 1, true, Build::avx2},    {5, 2, true, Build::avx2},        {4, 9, true, Build::avx},
        {3, 1, true, Build::mc3},     {3, 8, true, Build::mc3},         {2, 1, true, Build::mc},
        {2, 2, true, Build::cnr},     {2, 6, true, Build::cnr},         {0, 1, true, Build::def},
        {0, 2, true, Build::cnr},     {0, 3, true, Build::cnr},         {0, 4, true, Build::cnr},
        {1, 1, false, Build::def},    {8, 1, false, Build::def},        {-1, 1, false, Build::def},
    };
    for (const auto& c : cases) {
        Build build = Build::def;
        ASSERT_EQ(orv::build_for_code_path(c.code, c.branch, &build), c.usable) << c.code;
        if (c.usable) {
            EXPECT_EQ(build, c.build) << "code " << c.code << " branch " << c.branch;
        }
    }
}

// Child: one dispatched call, then the builds whose table holds the member
// the slot received ("slot=" followed by their indices).
TEST(DispatchChild, DISABLED_InstalledDot)
{
    const orv::i64 n = 3, inc = 1;
    const double x[3] = {1, 2, 3};
    using Family = orv::Family<orv::Level1Kernels>;
    ASSERT_EQ(Family::slots.ddot, nullptr);
    const double dot = orv::dispatch<&orv::Level1Kernels::ddot>(&n, x, &inc, x, &inc);
    std::printf("dot=%g slot=", dot);
    for (int b = 0; b < orv::kBuildCount; ++b)
        if (Family::builds[b]->ddot == Family::slots.ddot) std::printf("%d,", b);
    std::printf("\n");
    std::fflush(stdout);
}

TEST(Dispatch, ReproducibleBuildOnTheOldestPathsUnderAnyMode)
{
    using Family = orv::Family<orv::Level1Kernels>;
    // The baseline and the reproducible build hold different dot kernels, so
    // the two can be told apart.
    ASSERT_NE(Family::builds[static_cast<int>(Build::def)]->ddot, Family::builds[static_cast<int>(Build::cnr)]->ddot);
    const struct {
        const char* path;
        const char* mode;
        Build build;
    } cases[] = {
        {"0", nullptr, Build::def}, {"0", "AUTO", Build::cnr}, {"0", "COMPATIBLE", Build::cnr},
        {"2", nullptr, Build::mc},  {"2", "AUTO", Build::cnr}, {"5", "AUTO", Build::avx2},
        {"7", nullptr, Build::avx512},
    };
    for (const auto& c : cases) {
        // The child runs the path's kernel.
        if (!orvtest::code_path_runs_here(std::stol(c.path))) continue;
        const ChildResult child =
            run_child("DispatchChild.DISABLED_InstalledDot", {{"ORV_DEBUG_CPU_TYPE", c.path}, {"ORV_CBWR", c.mode}});
        EXPECT_EQ(child.status, 0) << child.out;
        const std::string listed = child.out.substr(child.out.find("slot=") + 5);
        const std::string wanted = std::to_string(static_cast<int>(c.build)) + ",";
        const std::string other = std::to_string(static_cast<int>(c.build == Build::cnr ? Build::def : Build::cnr)) + ",";
        EXPECT_NE(child.out.find("dot=14 "), std::string::npos) << child.out;
        EXPECT_NE(listed.find(wanted), std::string::npos)
            << "path " << c.path << " mode " << (c.mode ? c.mode : "-") << ":\n" << child.out;
        if (c.build == Build::def || c.build == Build::cnr) {
            EXPECT_EQ(listed.find(other), std::string::npos) << child.out;
        }
    }
}

// Child: many threads meet the same empty slot at once.
TEST(DispatchChild, DISABLED_RaceOnEmptySlot)
{
    const orv::i64 m = 2, n = 2, lda = 2, inc = 1;
    const double a[4] = {1, 2, 3, 4}, x[2] = {1, 1}, alpha = 1, beta = 0;
    std::vector<std::thread> threads;
    std::vector<double> y(16, 0.0);
    for (int t = 0; t < 8; ++t)
        threads.emplace_back([&, t] {
            orv::dispatch<&orv::Level2Kernels::dgemv>("N", &m, &n, &alpha, a, &lda, x, &inc, &beta, &y[2 * t], &inc,
                                                      &inc);
        });
    for (auto& th : threads) th.join();
    using Family = orv::Family<orv::Level2Kernels>;
    bool same = Family::slots.dgemv == Family::builds[static_cast<int>(orv::dispatch_build())]->dgemv;
    for (int t = 0; t < 8; ++t) same = same && y[2 * t] == 4 && y[2 * t + 1] == 6;
    std::printf("race=%s\n", same ? "same" : "different");
    std::fflush(stdout);
}

TEST(Dispatch, ThreadsRacingOnAnEmptySlotInstallOneBuild)
{
    const ChildResult child = run_child("DispatchChild.DISABLED_RaceOnEmptySlot", {});
    EXPECT_EQ(child.status, 0);
    EXPECT_NE(child.out.find("race=same\n"), std::string::npos) << child.out;
}

TEST(Dispatch, UnusableCodeEndsTheProcessAtTheFirstDispatchedCall)
{
    // Code 1 is accepted by detection but has no build of its own.
    const ChildResult child = run_child("DispatchChild.DISABLED_InstalledDot", {{"ORV_DEBUG_CPU_TYPE", "1"}});
    EXPECT_EQ(child.status, 1);
    EXPECT_NE(child.out.find("Calix ORV ERROR: CPU 1 is not supported.\n"), std::string::npos) << child.out;
    EXPECT_EQ(child.out.find("dot="), std::string::npos) << child.out;
}

}  // namespace
