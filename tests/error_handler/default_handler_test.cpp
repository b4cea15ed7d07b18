// A program without an xerbla_ of its own gets the library's report of an
// argument error on standard output; through the drop-in, the reference
// library's error handlers report the same way.

#include <gtest/gtest.h>

#include "orv_test.h"
#include "reports.h"
#if defined(ORV_TEST_DROPIN)
#include "blas.h"
#endif

namespace {

using orvtest::Report;

const int kBadN = -1, kThree = 3;

const Report kReports[] = {
    {"dgemm_ n < 0",
     [] {
         double a[9] = {}, b[9] = {}, c[9] = {};
         const double alpha = 1, beta = 0;
         dgemm_("N", "N", &kThree, &kBadN, &kThree, &alpha, a, &kThree, b, &kThree, &beta, c, &kThree);
     },
     "\nCalix ORV ERROR: Parameter 4 was incorrect on entry to DGEMM .\n"},
#if defined(ORV_TEST_DROPIN)
    {"ssyr2k_ k < 0",
     [] {
         float a[9] = {}, b[9] = {}, c[9] = {};
         const float alpha = 1, beta = 0;
         ssyr2k_("U", "N", &kThree, &kBadN, &alpha, a, &kThree, b, &kThree, &beta, c, &kThree);
     },
     "\nCalix ORV ERROR: Parameter 4 was incorrect on entry to SSYR2K.\n"},
    // Called by name, as LAPACK calls it: the hidden length bounds the name.
    {"xerbla_",
     [] {
         const int info = 7;
         xerbla_("ZPOTRF and more", &info, 6);
     },
     "\nCalix ORV ERROR: Parameter 7 was incorrect on entry to ZPOTRF.\n"},
    {"xerbla_array_",
     [] {
         const char name[] = {'C', 'G', 'E', 'S', 'V'};
         const int length = 5, info = 2;
         xerbla_array_(name, &length, &info);
     },
     "\nCalix ORV ERROR: Parameter 2 was incorrect on entry to CGESV.\n"},
#endif
};

TEST(DefaultHandler, DISABLED_ChildMakesBadCalls) { orvtest::make_calls(kReports); }

TEST(DefaultHandler, PrintsTheLibrarysReport) { orvtest::expect_reports("DefaultHandler.DISABLED_ChildMakesBadCalls", kReports); }

}  // namespace
