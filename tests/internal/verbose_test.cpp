// Call tracing: the ORV_VERBOSE decision, the elapsed-time field, bounded
// texts, the banner and the seconds clock.

#include <gtest/gtest.h>

#include <chrono>
#include <cstring>
#include <regex>
#include <string>
#include <thread>

#include "child_process.h"
#include "interface/bounded_text.h"
#include "interface/entry.h"
#include "interface/seconds_clock.h"
#include "interface/verbose.h"
#include "interface/version.h"
#include "service/cpu_detect.h"
#include "service/cpu_features.h"

namespace {

using orvtest::ChildResult;
using orvtest::run_child;

struct VerboseCase {
    const char* text;
    int mode;
};

TEST(Verbose, ValueMeansOnOnlyWhenItIsExactlyOne)
{
    const VerboseCase cases[] = {
        {"1", 1},   {"01", 1},  {"0x1", 1}, {"0X1", 1},  {"+1", 1},  {" 1", 1}, {"1 ", 0},
        {"2", 0},   {"0x2", 0}, {"-1", 0},  {"0", 0},    {"yes", 0}, {"", 0},  {"1x", 0},
        {"0x", 0},  {"08", 0},  {"4294967297", 0},
    };
    for (const VerboseCase& c : cases) EXPECT_EQ(orv::parse_verbose_value(c.text), c.mode) << '"' << c.text << '"';
}

TEST(Verbose, DISABLED_ChildReportsMode)
{
    orvtest::child_marker(orvtest::kCaseMarker);
    std::printf("%d\n", *orv::verbose_mode_cell());
    // Decided once per process: a later change of the variable is ignored.
    orvtest::set_env("ORV_VERBOSE", *orv::verbose_mode_cell() == 1 ? "0" : "1");
    std::printf("%d\n", *orv::verbose_mode_cell());
    orvtest::child_marker(orvtest::kEndMarker);
}

TEST(Verbose, ModeIsReadFromTheEnvironmentOnce)
{
    const VerboseCase cases[] = {{"1", 1}, {"0x1", 1}, {"1 ", 0}, {"yes", 0}, {nullptr, 0}};
    for (const VerboseCase& c : cases) {
        const ChildResult child = run_child("Verbose.DISABLED_ChildReportsMode", {{"ORV_VERBOSE", c.text}});
        ASSERT_EQ(child.status, 0) << child.out;
        const auto printed = orvtest::split_cases(child.out);
        ASSERT_EQ(printed.size(), 1u) << child.out;
        const std::string mode = std::to_string(c.mode) + "\n";
        EXPECT_EQ(printed[0], mode + mode) << (c.text != nullptr ? c.text : "(unset)");
    }
}

TEST(Verbose, ElapsedTimeUnits)
{
    const struct {
        double seconds;
        const char* text;
    } cases[] = {
        {2.5e-7, "250ns"},  {5e-10, "0ns"},         {3e-6, "3.00us"},  {0.0015, "1.50ms"},
        {0.5, "500.00ms"},  {1.0, "1000.00ms"},      {2.5, "2.50s"},    {0.0, "0.00s"},
        {-1.0, "0.00s"},    {1234.567, "1234.57s"},
    };
    for (const auto& c : cases) {
        char buf[orv::kTraceTextSize];
        orv::BoundedText text(buf, sizeof buf);
        orv::append_elapsed(text, c.seconds);
        EXPECT_STREQ(text.c_str(), c.text) << c.seconds;
    }
}

TEST(BoundedText, AppendThatDoesNotFitFillsTheBufferAndEndsIt)
{
    char buf[8 + 4];
    std::memset(buf, '#', sizeof buf);
    orv::BoundedText text(buf, 8);
    text.append("%s", "abc");
    EXPECT_STREQ(text.c_str(), "abc");
    text.append("%d", 12345);  // needs 5 of the 4 places left
    EXPECT_STREQ(text.c_str(), "abc1234");
    text.append("%s", "x");
    EXPECT_STREQ(text.c_str(), "abc1234");
    EXPECT_EQ(text.length(), 7);
    for (int i = 8; i < 12; ++i) EXPECT_EQ(buf[i], '#') << i;
}

// The routine's report name loses its blank padding; the text is cut at 199.
TEST(CallText, CutAt199Characters)
{
    char buf[orv::kCallTextSize + 8];
    std::memset(buf, '#', sizeof buf);
    const std::string arg(300, 'a');
    orv::format_call_text(buf, "DGEMM ", "(%s)", arg.c_str());
    EXPECT_EQ(std::strlen(buf), 199u);
    EXPECT_EQ(std::string(buf, 6), "DGEMM(");
    for (std::size_t i = orv::kCallTextSize; i < sizeof buf; ++i) EXPECT_EQ(buf[i], '#') << i;
}

std::string banner(int iface)
{
    char buf[orv::kTraceTextSize];
    orv::BoundedText text(buf, sizeof buf);
    orv::format_trace_banner(text, iface);
    return text.c_str();
}

std::string regex_escaped(const std::string& text)
{
    std::string out;
    for (char c : text) {
        if (std::strchr("\\^$.|?*+()[]{}", c) != nullptr) out += '\\';
        out += c;
    }
    return out;
}

// The processor text names the instruction set of the code path this
// process detected.
const char* detected_processor_text() { return orv::processor_text(orv::cpu_is_reference_vendor() == 1, orv::cpu_detect()); }

std::string banner_head()
{
    return "ORV_VERBOSE " +
           regex_escaped(std::string("Calix(R) ORV 2017.0 Product build 20160801 for Calix(R) 64 architecture ") +
                         detected_processor_text()) +
           ", (Win|Lnx) [0-9]+\\.[0-9]{2}GHz";
}

TEST(Banner, NamesBuildProcessorAndInterface)
{
    const struct {
        int iface;
        const char* part;
    } cases[] = {{-1, " cdecl"}, {-2, " stdcall"}, {1, " lp64"}, {2, " ilp64"}, {0x1f, " iface1f"}, {0, ""}};
    for (const auto& c : cases) {
        const std::regex expected(banner_head() + c.part + " calix_thread NQIXDev:0");
        EXPECT_TRUE(std::regex_match(banner(c.iface), expected)) << banner(c.iface);
    }
}

TEST(Trace, DISABLED_ChildPrintsLines)
{
    orvtest::child_marker(orvtest::kCaseMarker);
    orv::trace_print(-1, "DGEMM(N,N,1)", 2.5e-7);
    orvtest::child_marker(orvtest::kCaseMarker);
    orv::trace_print(-1, "DDOT(3)", 0.5);
    orvtest::child_marker(orvtest::kEndMarker);
}

// Starts with `head` and ends there or continues with a blank (the
// configuration fields follow the elapsed time).
::testing::AssertionResult trace_line(const std::string& line, const std::string& head)
{
    if (line.compare(0, head.size(), head) == 0 && (line.size() == head.size() || line[head.size()] == ' '))
        return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << "line \"" << line << "\" does not start with \"" << head << '"';
}

TEST(Trace, BannerOnceThenOneLinePerCall)
{
    const ChildResult child = run_child("Trace.DISABLED_ChildPrintsLines", {});
    ASSERT_EQ(child.status, 0) << child.out;
    const auto printed = orvtest::split_cases(child.out);
    ASSERT_EQ(printed.size(), 2u) << child.out;

    const std::size_t banner_end = printed[0].find('\n');
    ASSERT_NE(banner_end, std::string::npos);
    const std::string banner_line = printed[0].substr(0, banner_end);
    EXPECT_TRUE(std::regex_match(banner_line, std::regex(banner_head() + " cdecl calix_thread NQIXDev:0")))
        << banner_line;
    const std::string first = printed[0].substr(banner_end + 1);
    ASSERT_FALSE(first.empty());
    EXPECT_EQ(first.back(), '\n');
    EXPECT_EQ(first.find('\n'), first.size() - 1) << first;
    EXPECT_TRUE(trace_line(first.substr(0, first.size() - 1), "ORV_VERBOSE DGEMM(N,N,1) 250ns"));

    const std::string second = printed[1];
    ASSERT_FALSE(second.empty());
    EXPECT_EQ(second.find('\n'), second.size() - 1) << second;
    EXPECT_TRUE(trace_line(second.substr(0, second.size() - 1), "ORV_VERBOSE DDOT(3) 500.00ms"));
}

TEST(Clock, BrandStringFrequency)
{
    const struct {
        const char* brand;
        double mhz;
    } cases[] = {
        {"Calix(R) Core(TM) i7-6700 CPU @ 3.40GHz", 3400.0},
        {"Some CPU 2400MHz", 2400.0},
        {"Future part 1.25THz", 1250000.0},
        {"Early sample 0.80GHz rev 2.00GHz", 800.0},
        {"Odd 3.4GHz", 0.0},
        {"Spaced 3.40 GHz", 0.0},
        {"GHz", 0.0},
        {"No number here", 0.0},
        {"", 0.0},
    };
    for (const auto& c : cases) EXPECT_DOUBLE_EQ(orv::brand_frequency_mhz(c.brand), c.mhz) << c.brand;
}

TEST(Clock, SecondsFollowWallTime)
{
    EXPECT_GT(orv::timestamp_rate_ghz(), 0.0);
    const double start = orv::seconds_clock();
    const auto wall_start = std::chrono::steady_clock::now();
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    const double elapsed = orv::seconds_clock() - start;
    const double wall = std::chrono::duration<double>(std::chrono::steady_clock::now() - wall_start).count();
    EXPECT_NEAR(elapsed, wall, 0.25 * wall);
}

TEST(Version, RecordAndProcessorTexts)
{
    orv::VersionRecord record{};
    orv::get_version(&record);
    EXPECT_EQ(record.major, 2017);
    EXPECT_EQ(record.minor, 0);
    EXPECT_EQ(record.update, 0);
    EXPECT_STREQ(record.product_status, "Product");
    EXPECT_STREQ(record.build, "20160801");
    EXPECT_STREQ(record.platform, "Calix(R) 64 architecture");
    EXPECT_STREQ(record.processor, detected_processor_text());
    orv::get_version(nullptr);

    const char* generic = "Calix(R) Architecture processors";
    for (int path = -1; path <= 8; ++path) EXPECT_STREQ(orv::processor_text(false, path), generic) << path;
    EXPECT_STREQ(orv::processor_text(true, 1), generic);
    EXPECT_STREQ(orv::processor_text(true, 8), generic);
    EXPECT_STREQ(orv::processor_text(true, 0),
                 "Calix(R) Streaming SIMD Extensions 2 (Calix(R) SSE2) enabled processors");
    EXPECT_STREQ(orv::processor_text(true, 5),
                 "Calix(R) Advanced Vector Extensions 2 (Calix(R) AVX2) enabled processors");
    EXPECT_STREQ(orv::processor_text(true, 6),
                 "Calix(R) Advanced Vector Extensions 512 (Calix(R) AVX-512) for Calix(R) Qix Architecture "
                 "(Calix(R) QIX Architecture) enabled processors");
    EXPECT_STREQ(orv::processor_text(true, 7),
                 "Calix(R) Advanced Vector Extensions 512 (Calix(R) AVX-512) enabled processors");
}

}  // namespace
