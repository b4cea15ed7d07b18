// Code-path dispatch: which build each code path installs, the first call
// filling the slot, and the unusable codes ending the process.
#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <thread>
#include <vector>

#include "child_process.h"
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

// Child: one dispatched call, then which member its slot holds.
TEST(DispatchChild, DISABLED_InstalledDot)
{
    const orv::i64 n = 3, inc = 1;
    const double x[3] = {1, 2, 3};
    ASSERT_EQ(orv::Family<orv::Level1Kernels>::slots.ddot, nullptr);
    const double dot = orv::dispatch<&orv::Level1Kernels::ddot>(&n, x, &inc, x, &inc);
    const auto slot = orv::Family<orv::Level1Kernels>::slots.ddot;
    std::printf("dot=%g slot=%s\n", dot,
                slot == &orv::cnr::ddot ? "cnr" : slot == &orv::def::ddot ? "def" : "other");
    std::fflush(stdout);
}

TEST(Dispatch, ReproducibleBuildOnTheOldestPathsUnderAnyMode)
{
    const struct {
        const char* path;
        const char* mode;
        const char* slot;
    } cases[] = {
        {"0", nullptr, "def"}, {"0", "AUTO", "cnr"}, {"0", "COMPATIBLE", "cnr"},
        {"2", "AUTO", "cnr"},  {"5", "AUTO", "def"},  // path 5 runs the baseline kernels for now
    };
    for (const auto& c : cases) {
        const ChildResult child =
            run_child("DispatchChild.DISABLED_InstalledDot", {{"ORV_DEBUG_CPU_TYPE", c.path}, {"ORV_CBWR", c.mode}});
        EXPECT_EQ(child.status, 0) << child.out;
        EXPECT_NE(child.out.find(std::string("dot=14 slot=") + c.slot + "\n"), std::string::npos)
            << "path " << c.path << " mode " << (c.mode ? c.mode : "-") << ":\n" << child.out;
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
            orv::dispatch<&orv::Level2Kernels::dgemv>("N", &m, &n, &alpha, a, &lda, x, &inc, &beta, &y[2 * t], &inc);
        });
    for (auto& th : threads) th.join();
    bool same = orv::Family<orv::Level2Kernels>::slots.dgemv == &orv::cnr::dgemv;
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
