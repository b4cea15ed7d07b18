// lsame_, the version string and the thread-count service exports.

#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "orv.h"

namespace {

TEST(Lsame, EqualIgnoringCaseOfAsciiLettersOnly)
{
    auto fold = [](int c) { return c >= 'a' && c <= 'z' ? c - 32 : c; };
    int mismatches = 0;
    for (int a = 0; a < 256; ++a)
        for (int b = 0; b < 256; ++b) {
            const char ca = static_cast<char>(a), cb = static_cast<char>(b);
            const int expected = fold(a) == fold(b) ? 1 : 0;
            if (lsame_(&ca, &cb) != expected && ++mismatches <= 5)
                ADD_FAILURE() << "lsame_(" << a << ", " << b << ") != " << expected;
        }
    EXPECT_EQ(mismatches, 0);
    const char a = 'a';
    EXPECT_EQ(lsame_(nullptr, &a), 0);
    EXPECT_EQ(lsame_(&a, nullptr), 0);
    EXPECT_EQ(lsame_(nullptr, nullptr), 0);
    // Only the first character is read.
    EXPECT_EQ(lsame_("Nx", "nY"), 1);
}

const std::string kBanner =
    "Calix(R) Orv Library Version 2017.0.0 Product Build 20160801 for Calix(R) 64 architecture applications";

TEST(VersionString, BlankPaddedCutAndNeverTerminated)
{
    const struct {
        int len;
        std::string expected;
    } cases[] = {
        {200, kBanner + std::string(200 - kBanner.size(), ' ')},
        {static_cast<int>(kBanner.size()) + 1, kBanner + " "},
        {static_cast<int>(kBanner.size()), kBanner},
        {10, "Calix(R) O"},
        {1, "C"},
        {0, ""},
        {-5, ""},
    };
    for (const auto& c : cases) {
        char buf[256];
        std::memset(buf, '\x7f', sizeof buf);
        orv_get_version_string(buf, c.len);
        const std::size_t written = c.expected.size();
        EXPECT_EQ(std::string(buf, written), c.expected) << c.len;
        for (std::size_t i = written; i < sizeof buf; ++i) ASSERT_EQ(buf[i], '\x7f') << c.len << " at " << i;
    }
    orv_get_version_string(nullptr, 10);
}

// The requested count is a ceiling the thread policy may lower (never to 0),
// so only requests of one thread have an exact answer.
TEST(Threads, PositiveRequestsTakeEffectOthersAreIgnored)
{
    EXPECT_GE(orv_get_max_threads(), 1);
    const int one = 1;
    orv_set_num_threads(&one);
    EXPECT_EQ(orv_get_max_threads(), 1);
    for (int ignored : {0, -3, -2147483647 - 1}) {
        orv_set_num_threads(&ignored);
        EXPECT_EQ(orv_get_max_threads(), 1) << ignored;
    }
    const int many = 64;
    orv_set_num_threads(&many);
    const int granted = orv_get_max_threads();
    EXPECT_GE(granted, 1);
    EXPECT_LE(granted, many);
    for (int ignored : {0, -3}) {
        orv_set_num_threads(&ignored);
        EXPECT_EQ(orv_get_max_threads(), granted) << ignored;
    }
    orv_set_num_threads(&one);
    EXPECT_EQ(orv_get_max_threads(), 1);
}

}  // namespace
