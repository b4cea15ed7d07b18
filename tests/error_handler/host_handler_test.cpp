// A program that defines its own xerbla_ receives the argument errors there:
// with the routine's report name, the position and the name's length, while
// the library prints nothing of its own and leaves every output untouched.

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdio>

#include "orv_test.h"
#include "reports.h"
#if defined(ORV_TEST_DROPIN)
#include "blas.h"
#endif

#if defined(_WIN32)
#define HOST_HANDLER extern "C" __declspec(dllexport)
#else
#define HOST_HANDLER extern "C"
#endif

// Prints what it received through this program's own standard output.
HOST_HANDLER void xerbla_(const char* name, const int* info, std::size_t name_length)
{
    std::printf("host xerbla_ [%.*s] %d %u\n", static_cast<int>(name_length), name, *info,
                static_cast<unsigned>(name_length));
    std::fflush(stdout);
}

namespace {

using orvtest::Guarded;
using orvtest::Report;

const int kBadN = -1, kThree = 3, kOne = 1, kZero = 0;

// Each call has one invalid argument; the arrays it would write are guarded
// and must come back as they were.
const Report kReports[] = {
    {"dgemm_ n < 0",
     [] {
         Guarded<double> a(9), b(9), c(9);
         const double alpha = 1, beta = 0;
         const auto before = c.snapshot();
         dgemm_("N", "N", &kThree, &kBadN, &kThree, &alpha, a.data(), &kThree, b.data(), &kThree, &beta, c.data(),
                &kThree);
         EXPECT_TRUE(c.equals(before));
     },
     "host xerbla_ [DGEMM ] 4 6\n"},
    {"ztrsv_ uplo",
     [] {
         Guarded<orvtest::zcomplex> a(9), x(3);
         const auto before = x.snapshot();
         ztrsv_("X", "N", "N", &kThree, a.data(), &kThree, x.data(), &kOne);
         EXPECT_TRUE(x.equals(before));
     },
     "host xerbla_ [ZTRSV ] 1 6\n"},
#if defined(ORV_TEST_DROPIN)
    {"sgemv_ incy = 0",
     [] {
         float a[9] = {}, x[3] = {}, y[3] = {7, 8, 9};
         const float alpha = 1, beta = 0;
         sgemv_("N", &kThree, &kThree, &alpha, a, &kThree, x, &kOne, &beta, y, &kZero);
         EXPECT_EQ(y[0] + y[1] + y[2], 24.0f);
     },
     "host xerbla_ [SGEMV ] 11 6\n"},
    {"cherk_ trans T",
     [] {
         float a[18] = {}, c[18] = {5};
         const float alpha = 1, beta = 0;
         cherk_("U", "T", &kThree, &kThree, &alpha, a, &kThree, &beta, c, &kThree);
         EXPECT_EQ(c[0], 5.0f);
     },
     "host xerbla_ [CHERK ] 2 6\n"},
    {"xerbla_array_",
     [] {
         const char name[] = {'D', 'G', 'E', 'T', 'R', 'F'};
         const int length = 6, info = 3;
         xerbla_array_(name, &length, &info);
     },
     "host xerbla_ [DGETRF] 3 6\n"},
#endif
};

TEST(HostHandler, DISABLED_ChildMakesBadCalls) { orvtest::make_calls(kReports); }

TEST(HostHandler, ReceivesEveryReport) { orvtest::expect_reports("HostHandler.DISABLED_ChildMakesBadCalls", kReports); }

}  // namespace
