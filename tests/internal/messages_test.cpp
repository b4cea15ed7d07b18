// Catalogue printing, xerbla, the workspace reporter and the fatal exit.

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <string>

#include "child_process.h"
#include "interface/entry.h"
#include "interface/messages.h"
#include "interface/xerbla.h"

namespace {

using orvtest::ChildResult;
using orvtest::run_child;

const std::string kLongName(600, 'x');
const std::string kVeryLongName(5000, 'Q');

void report(const char* name, int info, std::size_t len) { orv::xerbla(name, &info, len); }

struct PrintCase {
    const char* label;
    void (*action)();
    std::string expected;
};

// Runs in the child, in order; the parent compares what each case printed.
const PrintCase kPrintCases[] = {
    {"line end only", [] { orv::print_message(0, orv::kMsgLineEnd, 0); }, "\n"},
    {"message 6 formatted", [] { orv::print_message(0, orv::kMsgBadParameter, 2, 4, "DGEMM "); },
     "Calix ORV ERROR: Parameter 4 was incorrect on entry to DGEMM .\n"},
    {"message 1213 formatted", [] { orv::print_message(0, orv::kMsgCpuNotSupported, 1, 9); },
     "Calix ORV ERROR: CPU 9 is not supported.\n"},
    {"xerbla bad parameter", [] { report("DGEMM ", 4, 6); },
     "\nCalix ORV ERROR: Parameter 4 was incorrect on entry to DGEMM .\n"},
    {"xerbla position 1", [] { report("DGER  ", 1, 6); },
     "\nCalix ORV ERROR: Parameter 1 was incorrect on entry to DGER  .\n"},
    {"xerbla large position", [] { report("ZHER  ", 1002, 6); },
     "\nCalix ORV ERROR: Parameter 1002 was incorrect on entry to ZHER  .\n"},
    {"xerbla 1000", [] { report("DGEMM", 1000, 5); },
     "\nCalix ORV INTERNAL ERROR: Insufficient workspace available in function DGEMM.\n"},
    {"xerbla 1001", [] { report("DGEMM", 1001, 5); },
     "\nCalix ORV ERROR: Incompatible optional parameters on entry to DGEMM.\n"},
    {"xerbla 1089", [] { report("DTRSM", 1089, 5); },
     "\nCalix ORV INTERNAL ERROR: Not enough work memory in function DTRSM\n"},
    {"xerbla 1212", [] { report("DGEMM", 1212, 5); },
     "\nCalix ORV INTERNAL ERROR: Issue accessing coprocessor DGEMM.\n"},
    {"xerbla condition 0", [] { report("DGEMM", 0, 5); },
     "\nCalix ORV INTERNAL ERROR: Condition 0 detected in function DGEMM.\n"},
    {"xerbla negative condition", [] { report("DGEMM", -7, 5); },
     "\nCalix ORV INTERNAL ERROR: Condition 7 detected in function DGEMM.\n"},
    {"xerbla name cut to its length", [] { report("DGEMMXYZ", 3, 5); },
     "\nCalix ORV ERROR: Parameter 3 was incorrect on entry to DGEMM.\n"},
    {"xerbla name cut at 20", [] { report("ABCDEFGHIJKLMNOPQRSTUVWXYZ", 2, 26); },
     "\nCalix ORV ERROR: Parameter 2 was incorrect on entry to ABCDEFGHIJKLMNOPQRST.\n"},
    {"xerbla null name", [] { report(nullptr, 2, 6); }, ""},
    {"xerbla null info", [] { orv::xerbla("DGEMM ", nullptr, 6); }, ""},
    {"workspace obtained", [] { EXPECT_EQ(orv::report_workspace_failure(1, "DGEMM"), 0); }, ""},
    {"workspace failed", [] { EXPECT_EQ(orv::report_workspace_failure(0, "DGEMM"), 1); },
     "\nCalix ORV INTERNAL ERROR: Not enough work memory in function DGEMM\n"},
    {"workspace failed long name", [] { EXPECT_EQ(orv::report_workspace_failure(0, kVeryLongName.c_str()), 1); },
     "\nCalix ORV INTERNAL ERROR: Not enough work memory in function QQQQQQQQQQQQQQQQQQQQ\n"},
    {"message cut at 511",
     [] { orv::print_message(0, orv::kMsgInternalCondition, 2, 1, kLongName.c_str()); },
     ("Calix ORV INTERNAL ERROR: Condition 1 detected in function " + kLongName).substr(0, 511) + "\n"},
};

TEST(Messages, DISABLED_ChildPrintCases)
{
    for (const PrintCase& c : kPrintCases) {
        orvtest::child_marker(orvtest::kCaseMarker);
        c.action();
    }
    orvtest::child_marker(orvtest::kEndMarker);
}

TEST(Messages, PrintedTextsAreExact)
{
    const ChildResult child = run_child("Messages.DISABLED_ChildPrintCases", {});
    ASSERT_EQ(child.status, 0) << child.out;
    const auto printed = orvtest::split_cases(child.out);
    ASSERT_EQ(printed.size(), std::size(kPrintCases)) << child.out;
    for (std::size_t i = 0; i < printed.size(); ++i)
        EXPECT_EQ(printed[i], kPrintCases[i].expected) << kPrintCases[i].label;
}

// The first handler offered keeps the slot; the workspace reporter hands it
// the whole measured name, capped at 4096 characters.
struct Recorded {
    int calls = 0;
    const char* name = nullptr;
    int info = 0;
    std::size_t len = 0;
} g_recorded;

void recording_hook(const char* name, const int* info, std::size_t len)
{
    ++g_recorded.calls;
    g_recorded.name = name;
    g_recorded.info = *info;
    g_recorded.len = len;
}

TEST(ErrorHook, DISABLED_ChildFirstRegistrationWins)
{
    ASSERT_EQ(orv::error_hook(), nullptr);
    EXPECT_TRUE(orv::offer_error_hook(recording_hook));
    EXPECT_FALSE(orv::offer_error_hook(orv::xerbla));
    orv::register_default_error_handler();
    EXPECT_EQ(orv::error_hook(), &recording_hook);

    EXPECT_EQ(orv::report_workspace_failure(5, "DGEMM"), 0);
    EXPECT_EQ(g_recorded.calls, 0);
    EXPECT_EQ(orv::report_workspace_failure(0, kVeryLongName.c_str()), 1);
    EXPECT_EQ(g_recorded.calls, 1);
    EXPECT_EQ(g_recorded.name, kVeryLongName.c_str());
    EXPECT_EQ(g_recorded.info, 1089);
    EXPECT_EQ(g_recorded.len, 4096u);
    EXPECT_EQ(orv::report_workspace_failure(0, "DTRSM"), 1);
    EXPECT_EQ(g_recorded.len, 5u);
}

TEST(ErrorHook, FirstRegistrationWins)
{
    const ChildResult child = run_child("ErrorHook.DISABLED_ChildFirstRegistrationWins", {});
    EXPECT_EQ(child.status, 0) << child.out;
}

TEST(ErrorHook, DISABLED_ChildDefaultHandlerReports)
{
    orv::register_default_error_handler();
    EXPECT_EQ(orv::error_hook(), &orv::xerbla);
    orvtest::child_marker(orvtest::kCaseMarker);
    EXPECT_EQ(orv::report_workspace_failure(0, "ZGEMM"), 1);
    orvtest::child_marker(orvtest::kEndMarker);
}

TEST(ErrorHook, DefaultHandlerReports)
{
    const ChildResult child = run_child("ErrorHook.DISABLED_ChildDefaultHandlerReports", {});
    ASSERT_EQ(child.status, 0) << child.out;
    const auto printed = orvtest::split_cases(child.out);
    ASSERT_EQ(printed.size(), 1u) << child.out;
    EXPECT_EQ(printed[0], "\nCalix ORV INTERNAL ERROR: Not enough work memory in function ZGEMM\n");
}

int g_hook_code = 0;
int exit_hook(int code)
{
    g_hook_code = code;
    return 100 + code;
}

TEST(FatalExit, HookReceivesCodeAndItsResultIsReturned)
{
    EXPECT_EQ(orv::set_fatal_exit_hook(exit_hook), nullptr);
    EXPECT_EQ(orv::fatal_exit(3), 103);
    EXPECT_EQ(g_hook_code, 3);
    EXPECT_EQ(orv::set_fatal_exit_hook(nullptr), &exit_hook);
}

void cleanup_handler() { orvtest::child_marker("cleanup ran\n"); }

TEST(FatalExit, DISABLED_ChildEndsProcess)
{
    std::atexit(cleanup_handler);
    orvtest::child_marker("before\n");
    orv::fatal_exit(7);
    orvtest::child_marker("after\n");
}

// Without a hook the process ends at once with the code: neither the rest
// of the test nor any exit handler runs.
TEST(FatalExit, EndsProcessWithoutCleanup)
{
    const ChildResult child = run_child("FatalExit.DISABLED_ChildEndsProcess", {});
    EXPECT_EQ(child.status, 7) << child.out;
    EXPECT_NE(child.out.find("before\n"), std::string::npos) << child.out;
    EXPECT_EQ(child.out.find("after"), std::string::npos) << child.out;
    EXPECT_EQ(child.out.find("cleanup ran"), std::string::npos) << child.out;
}

}  // namespace
