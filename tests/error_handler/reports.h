// Calls with one invalid argument each, made in a child process, and the
// exact text each must print there.
#pragma once

#include <gtest/gtest.h>

#include <iterator>
#include <string>

#include "child_process.h"

namespace orvtest {

struct Report {
    const char* label;
    void (*call)();
    const char* expected;  // everything printed during the call
};

// In the child: each call between case markers.
template <std::size_t N>
void make_calls(const Report (&reports)[N])
{
    for (const Report& r : reports) {
        child_marker(kCaseMarker);
        r.call();
    }
    child_marker(kEndMarker);
}

// In the parent: runs `child_test` and compares what each call printed.
template <std::size_t N>
void expect_reports(const char* child_test, const Report (&reports)[N])
{
    const auto child = run_child(child_test, {});
    ASSERT_EQ(child.status, 0) << child.out;
    const auto printed = split_cases(child.out);
    ASSERT_EQ(printed.size(), N) << child.out;
    for (std::size_t i = 0; i < N; ++i) EXPECT_EQ(printed[i], reports[i].expected) << reports[i].label;
}

}  // namespace orvtest
