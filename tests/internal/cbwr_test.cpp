// The reproducibility mode: the keyword parse, the refusals, the
// best branch, the trace names, and the mode of a real process in children.

#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <string>

#include "child_process.h"
#include "service/cbwr.h"
#include "service/cpu_detect.h"
#include "service/cpu_features.h"

namespace {

using orvtest::ChildResult;
using orvtest::run_child;

TEST(CbwrParse, KeywordTable)
{
    const struct {
        const char* value;
        int keyword;
    } cases[] = {
        {nullptr, 0},
        {"", 0},
        {"AUTO", 2},
        {"COMPATIBLE", 3},
        {"SSE2", 4},
        {"SSE3", 4},  // deliberately the same branch as SSE2
        {"SSSE3", 6},
        {"SSE4_1", 7},
        {"SSE4_2", 8},
        {"AVX", 9},
        {"AVX2", 10},
        {"AVX512_QIX", 11},
        {"AVX512", 12},
        {"BRANCH=AVX", 9},
        {"BRANCH=COMPATIBLE", 3},
        {"BRANCH=AVX512_QIX", 11},
        {"BRANCH=SSE3", 4},
        {"BRANCH=AUTO", 2},
        // Whole-value matches only; everything else silently means AUTO.
        {"avx2", 2},
        {"AVX2,STRICT", 2},
        {"AVX2 ", 2},
        {" AVX2", 2},
        {"AVX512F", 2},
        {"AVX51", 2},
        {"SSE4_1 ", 2},
        {"BRANCH=", 2},
        {"BRANCH=AVX2,STRICT", 2},
        {"BRANCH=BRANCH=AVX", 2},
        {"branch=AVX", 2},
        {"XBRANCH=AVX", 2},
        {"STRICT", 2},
        {"SSE4", 2},
        {"compatible", 2},
    };
    for (const auto& c : cases)
        EXPECT_EQ(orv::cbwr_parse_keyword(c.value), c.keyword) << (c.value ? c.value : "null");
}

TEST(CbwrDecide, ReferenceVendorBelowItsBestBranch)
{
    // An AVX2 processor of the reference vendor (best branch 10).
    const struct {
        const char* value;
        int mode;
    } cases[] = {
        {nullptr, 0},       {"", 0},           {"AUTO", 2},   {"COMPATIBLE", 3}, {"SSE2", 4},
        {"SSE3", 4},        {"SSSE3", 6},      {"SSE4_1", 7}, {"SSE4_2", 8},     {"AVX", 9},
        {"BRANCH=AVX", 9},  {"AVX2", 10},      {"AVX512_QIX", 2}, {"AVX512", 2}, {"avx2", 2},
        {"AVX2,STRICT", 2}, {"BRANCH=AVX512", 2},
    };
    for (const auto& c : cases) EXPECT_EQ(orv::cbwr_decide(c.value, 1, 10), c.mode) << (c.value ? c.value : "null");
}

TEST(CbwrDecide, Refusals)
{
    // Above the best branch.
    EXPECT_EQ(orv::cbwr_decide("AVX", 1, 8), 2);
    EXPECT_EQ(orv::cbwr_decide("SSE4_2", 1, 8), 8);
    EXPECT_EQ(orv::cbwr_decide("SSE4_1", 1, 6), 2);
    EXPECT_EQ(orv::cbwr_decide("SSSE3", 1, 6), 6);
    EXPECT_EQ(orv::cbwr_decide("SSSE3", 1, 4), 2);
    EXPECT_EQ(orv::cbwr_decide("SSE3", 1, 4), 4);
    EXPECT_EQ(orv::cbwr_decide("COMPATIBLE", 1, 4), 3);
    EXPECT_EQ(orv::cbwr_decide("COMPATIBLE", 1, -4), 2);
    // The Qix branch on a server AVX-512 processor.
    EXPECT_EQ(orv::cbwr_decide("AVX512_QIX", 1, 12), 2);
    EXPECT_EQ(orv::cbwr_decide("AVX512", 1, 12), 12);
    EXPECT_EQ(orv::cbwr_decide("AVX2", 1, 12), 10);
    // On a Qix processor.
    EXPECT_EQ(orv::cbwr_decide("AVX512_QIX", 1, 11), 11);
    EXPECT_EQ(orv::cbwr_decide("AVX512", 1, 11), 2);
}

TEST(CbwrDecide, AnotherVendor)
{
    // Only COMPATIBLE survives on another vendor's processor; its best branch
    // is 2 whatever is passed.
    for (int best : {2, 10, 12}) {
        EXPECT_EQ(orv::cbwr_decide("COMPATIBLE", 0, best), 3) << best;
        EXPECT_EQ(orv::cbwr_decide("BRANCH=COMPATIBLE", 0, best), 3) << best;
        for (const char* v : {"SSE2", "SSE3", "SSSE3", "SSE4_1", "SSE4_2", "AVX", "AVX2", "AVX512_QIX", "AVX512"})
            EXPECT_EQ(orv::cbwr_decide(v, 0, best), 2) << v << ' ' << best;
        EXPECT_EQ(orv::cbwr_decide("AUTO", 0, best), 2);
        EXPECT_EQ(orv::cbwr_decide("junk", 0, best), 2);
        EXPECT_EQ(orv::cbwr_decide("", 0, best), 0);
    }
}

TEST(CbwrDecide, ResolveKeepsAbsentAndAuto)
{
    EXPECT_EQ(orv::cbwr_resolve(0, 1, 10), 0);
    EXPECT_EQ(orv::cbwr_resolve(2, 1, 10), 2);
    EXPECT_EQ(orv::cbwr_resolve(0, 0, 2), 0);
    EXPECT_EQ(orv::cbwr_resolve(2, 0, 2), 2);
}

TEST(CbwrBestBranch, ByHardwarePath)
{
    EXPECT_EQ(orv::cbwr_best_branch_for(0, 7, 1), 2);
    EXPECT_EQ(orv::cbwr_best_branch_for(0, 0, 0), 2);
    const struct {
        int path;
        int sse41;
        int best;
    } cases[] = {{0, 0, 4}, {1, 0, 4}, {2, 0, 6}, {2, 1, 7}, {3, 1, 8}, {4, 1, 9},
                 {5, 1, 10}, {6, 1, 11}, {7, 1, 12}, {-1, 1, -4}, {8, 1, -4}};
    for (const auto& c : cases) EXPECT_EQ(orv::cbwr_best_branch_for(1, c.path, c.sse41), c.best) << c.path;
}

TEST(CbwrBestBranch, ThisProcessor)
{
    const int vendor = orv::cpu_is_reference_vendor();
    const int best = orv::cbwr_best_branch();
    if (vendor == 0) {
        EXPECT_EQ(best, 2);
    } else {
        EXPECT_EQ(best, orv::cbwr_best_branch_for(1, orv::cpu_detect_hardware(1), orv::cpu_has_sse41()));
        EXPECT_GE(best, 4);
    }
}

TEST(CbwrGet, InvalidQuestion)
{
    for (int what : {0, 2, -2, 3, 100}) {
        EXPECT_EQ(orv::cbwr_get(what), -2) << what;
        EXPECT_EQ(orv::cbwr_get_unlocked(what), -2) << what;
    }
}

TEST(CbwrBranchName, TraceTexts)
{
    const struct {
        int branch;
        const char* name;
    } cases[] = {
        {1, "OFF"},     {2, "AUTO"},    {3, "COMPATIBLE"}, {4, "SSE2"},       {6, "SSSE3"},   {7, "SSE4_1"},
        {8, "SSE4_2"},  {9, "AVX"},     {10, "AVX2"},      {11, "AVX512_QIX"}, {12, "AVX512"}, {0, "?0"},
        {5, "?5"},      {13, "?d"},     {-2, "?fffffffe"}, {0x1234abcd, "?1234abcd"},
    };
    for (const auto& c : cases) {
        char buf[64];
        std::memset(buf, '#', sizeof buf);
        EXPECT_STREQ(orv::cbwr_branch_name(c.branch, buf, sizeof buf), c.name) << c.branch;
    }
    char small[4];
    EXPECT_STREQ(orv::cbwr_branch_name(3, small, sizeof small), "COM");
    EXPECT_STREQ(orv::cbwr_branch_name(-1, small, sizeof small), "?ff");
}

// ---------------------------------------------------------------------------
// The mode of a real process: the report child lives in cpu_detect_test.cpp.

struct Report {
    bool ok = false;
    int path = -9, branch = -9, mode = -9, cap = -9, fresh = -9, sse41 = -9, tuned = -9;
};

Report report(const char* cbwr, const char* enable = nullptr)
{
    const ChildResult child = run_child("CpuDetectChild.DISABLED_Report", {{"ORV_DEBUG_CPU_TYPE", nullptr},
                                                                           {"ORV_CBWR", cbwr},
                                                                           {"ORV_ENABLE_INSTRUCTIONS", enable}});
    Report rep;
    const std::size_t at = child.out.find("report ");
    if (child.status == 0 && at != std::string::npos)
        rep.ok = std::sscanf(child.out.c_str() + at,
                             "report path=%d branch=%d mode=%d cap=%d fresh=%d sse41=%d tuned=%d", &rep.path,
                             &rep.branch, &rep.mode, &rep.cap, &rep.fresh, &rep.sse41, &rep.tuned) == 7;
    EXPECT_TRUE(rep.ok) << "status " << child.status << ": " << child.out;
    return rep;
}

// The code path and branch this processor gets under a cap, from its feature
// word.
int selection(int cap)
{
    return orv::select_code_path(orv::cpu_feature_word(), orv::cpu_is_reference_vendor(),
                                 orv::enable_flags_for_cap(cap, orv::kDefaultEnableFlags));
}

int expected_branch(const char* value, int cap)
{
    const int vendor = orv::cpu_is_reference_vendor();
    const int best = orv::cbwr_best_branch_for(vendor, selection(cap), orv::cpu_has_sse41());
    const int mode = orv::cbwr_decide(value, vendor, best);
    return mode != 0 ? mode : 1;
}

int expected_path(int branch, int cap)
{
    if (branch == 1 || branch == 2) return selection(cap);
    const int mode_path = orv::cbwr_mode_code_path(branch);
    if (cap == -1 || mode_path <= cap) return mode_path;
    return orv::cap_features_present(cap, orv::cpu_feature_word()) ? selection(cap) : mode_path;
}

bool development_machine()
{
    return orv::cpu_is_reference_vendor() == 1 && orv::cpu_has_features(orv::kFeatureAvx2Group) &&
           orv::cpu_has_features(orv::kFeatureAvx512Group) && !orv::cpu_has_features(orv::kFeatureQixAvx512Group);
}

TEST(CbwrProcess, ModesAgainstThisProcessor)
{
    const struct {
        const char* value;
        const char* enable;
    } cases[] = {
        {nullptr, nullptr},      {"AUTO", nullptr},      {"COMPATIBLE", nullptr},   {"SSE2", nullptr},
        {"SSE3", nullptr},       {"SSSE3", nullptr},     {"SSE4_1", nullptr},       {"SSE4_2", nullptr},
        {"AVX", nullptr},        {"BRANCH=AVX", nullptr}, {"AVX2", nullptr},        {"AVX512_QIX", nullptr},
        {"AVX512", nullptr},     {"avx2", nullptr},      {"AVX2,STRICT", nullptr},  {"AVX512", "AVX512"},
        {"AVX512_QIX", "AVX512"}, {"AVX2", "AVX"},       {"AVX", "AVX2"},           {"AVX512", "SSE4_2"},
    };
    for (const auto& c : cases) {
        const char* label = c.value ? c.value : "(unset)";
        const int cap = orv::parse_instruction_cap(c.enable);
        const Report rep = report(c.value, c.enable);
        EXPECT_EQ(rep.branch, expected_branch(c.value, cap)) << label << " cap " << cap;
        EXPECT_EQ(rep.path, expected_path(rep.branch, cap)) << label << " cap " << cap;
        EXPECT_EQ(rep.mode, rep.branch == 1 ? 0 : rep.branch) << label;
    }
}

TEST(CbwrProcess, Compatible)
{
    const Report rep = report("COMPATIBLE");
    EXPECT_EQ(rep.branch, 3);
    EXPECT_EQ(rep.mode, 3);
    EXPECT_EQ(rep.path, 0);
    EXPECT_EQ(rep.sse41, 0);
    EXPECT_EQ(rep.tuned, 0);
}

TEST(CbwrProcess, Unset)
{
    const Report rep = report(nullptr);
    EXPECT_EQ(rep.branch, 1);
    EXPECT_EQ(rep.mode, 0);
    EXPECT_EQ(rep.sse41, orv::cpu_has_sse41());
    EXPECT_EQ(rep.tuned, orv::cpu_is_reference_vendor());
}

// The literal outcomes on the development machines (the reference vendor's
// AVX2 processor with server AVX-512 F, DQ, BW, VL).
TEST(CbwrProcess, DevelopmentMachine)
{
    if (!development_machine()) GTEST_SKIP() << "not a reference-vendor server AVX-512 processor";
    Report rep = report("BRANCH=AVX");
    EXPECT_EQ(rep.branch, 9);
    EXPECT_EQ(rep.path, 4);
    EXPECT_EQ(rep.sse41, 1);
    EXPECT_EQ(rep.tuned, 1);
    rep = report("AVX2");
    EXPECT_EQ(rep.branch, 10);
    EXPECT_EQ(rep.path, 5);
    rep = report("SSE3");
    EXPECT_EQ(rep.branch, 4);
    EXPECT_EQ(rep.path, 0);
    EXPECT_EQ(rep.sse41, 0);
    EXPECT_EQ(rep.tuned, 1);
    rep = report("SSE4_1");
    EXPECT_EQ(rep.branch, 7);
    EXPECT_EQ(rep.path, 2);
    EXPECT_EQ(rep.sse41, 1);
    rep = report("SSSE3");
    EXPECT_EQ(rep.branch, 6);
    EXPECT_EQ(rep.path, 2);
    EXPECT_EQ(rep.sse41, 0);
    rep = report("SSE4_2");
    EXPECT_EQ(rep.branch, 8);
    EXPECT_EQ(rep.path, 3);
    rep = report("AUTO");
    EXPECT_EQ(rep.branch, 2);
    EXPECT_EQ(rep.path, 5);
    EXPECT_EQ(rep.tuned, 1);
    rep = report("AVX2,STRICT");
    EXPECT_EQ(rep.branch, 2);
    EXPECT_EQ(rep.path, 5);
    rep = report("avx2");
    EXPECT_EQ(rep.branch, 2);
    // Server AVX-512 is off without the cap, so its branch is above the best.
    rep = report("AVX512");
    EXPECT_EQ(rep.branch, 2);
    EXPECT_EQ(rep.path, 5);
    rep = report("AVX512", "AVX512");
    EXPECT_EQ(rep.branch, 12);
    EXPECT_EQ(rep.path, 7);
    rep = report("AVX512_QIX", "AVX512");  // refused on server AVX-512
    EXPECT_EQ(rep.branch, 2);
    EXPECT_EQ(rep.path, 7);
    rep = report("AVX512_QIX");  // above the best branch (10)
    EXPECT_EQ(rep.branch, 2);
    EXPECT_EQ(rep.path, 5);
    // The cap lowers the best branch too: AVX2 is then above it.
    rep = report("AVX2", "AVX");
    EXPECT_EQ(rep.branch, 2);
    EXPECT_EQ(rep.path, 4);
    rep = report("AVX", "AVX2");
    EXPECT_EQ(rep.branch, 9);
    EXPECT_EQ(rep.path, 4);
}

}  // namespace
