// Platform services: the environment reader and the spin lock.

#include <gtest/gtest.h>

#include <cstring>
#include <thread>

#include "child_process.h"
#include "service/platform.h"
#include "service/spinlock.h"

namespace {

TEST(Platform, EnvironmentReaderReturnsWholeLengthAndCutsCopy)
{
    orvtest::set_env("ORV_TEST_PLATFORM_VALUE", "abcdef");
    char buf[16];
    std::memset(buf, '#', sizeof buf);
    EXPECT_EQ(orv::platform::read_env("ORV_TEST_PLATFORM_VALUE", buf, 4), 6);
    EXPECT_STREQ(buf, "abc");
    EXPECT_EQ(buf[4], '#');
    EXPECT_EQ(orv::platform::read_env("ORV_TEST_PLATFORM_VALUE", buf, sizeof buf), 6);
    EXPECT_STREQ(buf, "abcdef");

    orvtest::set_env("ORV_TEST_PLATFORM_VALUE", nullptr);
    EXPECT_LE(orv::platform::read_env("ORV_TEST_PLATFORM_VALUE", buf, sizeof buf), 0);
    EXPECT_STREQ(buf, "");
}

TEST(SpinLock, SerialisesIncrements)
{
    orv::SpinLock lock;
    long counter = 0;
    constexpr int kPerThread = 200000;
    auto work = [&] {
        for (int i = 0; i < kPerThread; ++i) {
            orv::SpinGuard guard(lock);
            // A read and a separate write: lost updates show without the lock.
            const long seen = counter;
            counter = seen + 1;
        }
    };
    std::thread a(work), b(work), c(work);
    a.join();
    b.join();
    c.join();
    EXPECT_EQ(counter, 3L * kPerThread);
}

}  // namespace
