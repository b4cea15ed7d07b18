// The memory manager: alignment and block layout, the per-thread cache,
// concurrent use, and the settings read from the environment.

#include <gtest/gtest.h>

#include <climits>
#include <condition_variable>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <random>
#include <string>
#include <mutex>
#include <thread>
#include <vector>

#include "child_process.h"
#include "service/memory.h"
#include "service/memory_block.h"

namespace {

using orv::orv_free;
using orv::orv_malloc;
using orv::orv_malloc_uncached;
using orv::mm::MemoryTotals;
using orv::mm::thread_memory_totals;

using Allocate = void* (*)(std::size_t, int);

// A new thread starts with an empty cache, whatever earlier tests left in
// this one's.
template <typename Body>
void on_fresh_thread(Body body)
{
    std::thread thread(body);
    thread.join();
}

bool is_aligned(const void* p, std::size_t alignment)
{
    return reinterpret_cast<std::uintptr_t>(p) % alignment == 0;
}

// The header words below a live block, its record, and that the caller's
// bytes lie inside the underlying allocation clear of both.
void expect_layout(const void* p, std::size_t size, int alignment)
{
    const orv::mm::BlockHeader* header = orv::mm::header_of(p);
    EXPECT_EQ(header->alignment, static_cast<std::uint32_t>(alignment));
    EXPECT_EQ(header->offload, 0u);
    EXPECT_EQ(header->total, size + static_cast<std::size_t>(alignment) + 24);
    ASSERT_NE(header->raw, nullptr);
    const orv::mm::RawRecord* record = orv::mm::record_of(header);
    EXPECT_EQ(record->raw, header->raw);
    EXPECT_EQ(record->magic, 4096u);
    const std::uintptr_t raw = reinterpret_cast<std::uintptr_t>(header->raw);
    const std::uintptr_t user = reinterpret_cast<std::uintptr_t>(p);
    EXPECT_GE(user, raw + sizeof(orv::mm::RawRecord) + sizeof(orv::mm::BlockHeader));
    EXPECT_LE(user + size, raw + record->size);
}

struct AlignmentCase {
    int requested;
    int effective;
};

class Alignment : public testing::TestWithParam<AlignmentCase> {};

TEST_P(Alignment, BlocksAreAlignedAndCarryTheirHeader)
{
    const AlignmentCase c = GetParam();
    EXPECT_EQ(orv::mm::effective_alignment(c.requested), c.effective);
    const Allocate allocators[] = {orv_malloc, orv_malloc_uncached};
    for (Allocate allocate : allocators) {
        for (std::size_t size : {std::size_t{1}, std::size_t{100}, std::size_t{4095}}) {
            void* p = allocate(size, c.requested);
            ASSERT_NE(p, nullptr) << size;
            EXPECT_TRUE(is_aligned(p, static_cast<std::size_t>(c.effective))) << p << " size " << size;
            expect_layout(p, size, c.effective);
            std::memset(p, 0xA5, size);
            orv_free(p);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Memory, Alignment,
                         testing::Values(AlignmentCase{0, 64}, AlignmentCase{1, 64}, AlignmentCase{48, 64},
                                         AlignmentCase{63, 64}, AlignmentCase{64, 64}, AlignmentCase{65, 64},
                                         AlignmentCase{96, 64}, AlignmentCase{768, 64}, AlignmentCase{-64, 64},
                                         AlignmentCase{INT_MIN, 64}, AlignmentCase{128, 128},
                                         AlignmentCase{256, 256}, AlignmentCase{512, 512},
                                         AlignmentCase{1024, 1024}, AlignmentCase{2048, 2048},
                                         AlignmentCase{4096, 4096}, AlignmentCase{1 << 16, 1 << 16}));

TEST(Memory, NoBlockForSizeZeroOrSizesThatOverflow)
{
    const std::size_t sizes[] = {0, SIZE_MAX, SIZE_MAX - 50, SIZE_MAX - 100};
    for (std::size_t size : sizes) {
        EXPECT_EQ(orv_malloc(size, 64), nullptr) << size;
        EXPECT_EQ(orv_malloc_uncached(size, 4096), nullptr) << size;
    }
}

TEST(Memory, ReleaseIgnoresNullAndBlocksWithoutRawAddress)
{
    const MemoryTotals before = thread_memory_totals();
    orv_free(nullptr);
    // A header of zeros: following it would free address 0's record.
    alignas(64) unsigned char fake[128] = {};
    orv_free(fake + 64);
    const MemoryTotals after = thread_memory_totals();
    EXPECT_EQ(after.bytes, before.bytes);
    EXPECT_EQ(after.blocks, before.blocks);
}

struct ReuseCase {
    std::size_t first_size;
    int first_alignment;
    std::size_t second_size;
    int second_alignment;
    bool reused;
};

class CacheReuse : public testing::TestWithParam<ReuseCase> {};

TEST_P(CacheReuse, OnlyAnExactFitComesBack)
{
    if (!orv::fast_mm_enabled()) GTEST_SKIP() << "cache disabled in this environment";
    const ReuseCase c = GetParam();
    on_fresh_thread([&] {
        void* first = orv_malloc(c.first_size, c.first_alignment);
        ASSERT_NE(first, nullptr);
        orv_free(first);
        const MemoryTotals held = thread_memory_totals();
        void* second = orv_malloc(c.second_size, c.second_alignment);
        ASSERT_NE(second, nullptr);
        EXPECT_EQ(second == first, c.reused);
        EXPECT_EQ(thread_memory_totals().blocks, held.blocks + (c.reused ? 0 : 1));
        expect_layout(second, c.second_size, orv::mm::effective_alignment(c.second_alignment));
        orv_free(second);
    });
}

INSTANTIATE_TEST_SUITE_P(Memory, CacheReuse,
                         testing::Values(ReuseCase{1000, 64, 1000, 64, true}, ReuseCase{1000, 64, 1000, 0, true},
                                         ReuseCase{1000, 48, 1000, 64, true},
                                         ReuseCase{1000, 128, 1000, 128, true},
                                         ReuseCase{1000, 64, 999, 64, false}, ReuseCase{1000, 64, 1001, 64, false},
                                         ReuseCase{4000, 64, 1000, 64, false},
                                         ReuseCase{1000, 256, 1000, 64, false},
                                         ReuseCase{1000, 64, 1000, 256, false}));

// Same size + alignment, different split: whatever comes back must still
// honour the new alignment and reach far enough.
TEST(Memory, EqualCapacityWithOtherAlignmentStaysInsideTheBlock)
{
    on_fresh_thread([] {
        for (std::size_t k = 0; k < 12; ++k) {
            const std::size_t base = 1000 + 16 * k;
            const struct {
                std::size_t size;
                int alignment;
            } order[2][2] = {{{base, 128}, {base + 64, 64}}, {{base + 64, 64}, {base, 128}}};
            for (const auto& pair : order) {
                void* first = orv_malloc(pair[0].size, pair[0].alignment);
                ASSERT_NE(first, nullptr);
                orv_free(first);
                void* second = orv_malloc(pair[1].size, pair[1].alignment);
                ASSERT_NE(second, nullptr);
                EXPECT_TRUE(is_aligned(second, static_cast<std::size_t>(pair[1].alignment)));
                expect_layout(second, pair[1].size, pair[1].alignment);
                orv_free(second);
            }
        }
    });
}

TEST(Memory, FullCacheReplacesOnlyFreeEntries)
{
    if (!orv::fast_mm_enabled()) GTEST_SKIP() << "cache disabled in this environment";
    on_fresh_thread([] {
        const MemoryTotals base = thread_memory_totals();
        const std::size_t sizes[5] = {1000, 2000, 3000, 4000, 5000};
        void* kept[5];
        for (int i = 0; i < 5; ++i) {
            kept[i] = orv_malloc(sizes[i], 64);
            ASSERT_NE(kept[i], nullptr);
            std::memset(kept[i], i + 1, sizes[i]);
        }
        EXPECT_EQ(thread_memory_totals().blocks, base.blocks + 5);

        // All five entries in use: the sixth comes from outside the cache and
        // goes back as soon as it is freed.
        void* sixth = orv_malloc(6000, 64);
        ASSERT_NE(sixth, nullptr);
        std::memset(sixth, 0x66, 6000);
        EXPECT_EQ(thread_memory_totals().blocks, base.blocks + 6);
        for (int i = 0; i < 5; ++i) {
            EXPECT_NE(kept[i], sixth);
            const auto* bytes = static_cast<const unsigned char*>(kept[i]);
            EXPECT_TRUE(bytes[0] == i + 1 && bytes[sizes[i] - 1] == i + 1) << i;
        }
        orv_free(sixth);
        EXPECT_EQ(thread_memory_totals().blocks, base.blocks + 5);

        // Released entries stay parked and come back for their own sizes.
        for (void* p : kept) orv_free(p);
        EXPECT_EQ(thread_memory_totals().blocks, base.blocks + 5);
        for (int i = 0; i < 5; ++i) {
            void* again = orv_malloc(sizes[i], 64);
            EXPECT_EQ(again, kept[i]) << sizes[i];
            orv_free(again);
        }

        // A new size with every entry free replaces one of them.
        void* other = orv_malloc(7000, 64);
        ASSERT_NE(other, nullptr);
        EXPECT_EQ(thread_memory_totals().blocks, base.blocks + 5);
        orv_free(other);
    });
}

struct BypassCase {
    std::size_t size;
    bool uncached_call;
    bool kept;
};

class CacheBypass : public testing::TestWithParam<BypassCase> {};

TEST_P(CacheBypass, ReleasedBlockIsKeptOnlyWhenCacheable)
{
    if (!orv::fast_mm_enabled()) GTEST_SKIP() << "cache disabled in this environment";
    const BypassCase c = GetParam();
    on_fresh_thread([&] {
        const MemoryTotals base = thread_memory_totals();
        void* p = c.uncached_call ? orv_malloc_uncached(c.size, 64) : orv_malloc(c.size, 64);
        ASSERT_NE(p, nullptr);
        EXPECT_EQ(thread_memory_totals().blocks, base.blocks + 1);
        orv_free(p);
        const MemoryTotals after = thread_memory_totals();
        EXPECT_EQ(after.blocks, base.blocks + (c.kept ? 1 : 0));
        EXPECT_EQ(after.bytes, base.bytes + (c.kept ? static_cast<orv::i64>(c.size + 64 + 24) : 0));
    });
}

INSTANTIATE_TEST_SUITE_P(Memory, CacheBypass,
                         testing::Values(BypassCase{1000, false, true}, BypassCase{0x8000000, false, true},
                                         BypassCase{0x8000001, false, false}, BypassCase{1000, true, false}));

// A cached block freed by another thread goes back to its owner's cache,
// not to the system behind the owner's back.
TEST(Memory, ForeignReleaseOfCachedBlockMarksItFree)
{
    if (!orv::fast_mm_enabled()) GTEST_SKIP() << "cache disabled in this environment";
    on_fresh_thread([] {
        void* p = orv_malloc(3000, 128);
        ASSERT_NE(p, nullptr);
        const MemoryTotals held = thread_memory_totals();
        on_fresh_thread([p] { orv_free(p); });
        EXPECT_EQ(orv_malloc(3000, 128), p);
        EXPECT_EQ(thread_memory_totals().blocks, held.blocks);
        orv_free(p);
    });
}

// Byte pattern of one block: a wrong byte means two owners at once.
unsigned char pattern(unsigned thread, unsigned serial)
{
    return static_cast<unsigned char>(thread * 37 + serial * 11 + 1);
}

bool holds(const void* p, std::size_t size, unsigned char value)
{
    const auto* bytes = static_cast<const unsigned char*>(p);
    for (std::size_t i = 0; i < size; ++i)
        if (bytes[i] != value) return false;
    return true;
}

struct Live {
    void* p = nullptr;
    std::size_t size = 0;
    unsigned char value = 0;
};

constexpr std::size_t kMixedSizes[] = {8, 100, 1000, 4096, 20000, 1000, 100};
constexpr int kMixedAlignments[] = {0, 64, 256, 4096};

// A block of a random size and alignment, filled; null when the request
// failed or came back misaligned.
Live take(std::minstd_rand& random, unsigned thread, unsigned serial)
{
    Live live;
    live.size = kMixedSizes[random() % std::size(kMixedSizes)];
    const int alignment = kMixedAlignments[random() % std::size(kMixedAlignments)];
    live.p = orv_malloc(live.size, alignment);
    if (live.p == nullptr) return Live{};
    if (!is_aligned(live.p, static_cast<std::size_t>(orv::mm::effective_alignment(alignment)))) {
        orv_free(live.p);
        return Live{};
    }
    live.value = pattern(thread, serial);
    std::memset(live.p, live.value, live.size);
    return live;
}

TEST(Memory, ManyThreadsAllocateAndReleaseWithoutSharing)
{
    constexpr unsigned kThreads = 16;
    constexpr unsigned kSteps = 2000;
    constexpr int kSlots = 7;  // more live blocks than a cache holds
    std::vector<int> failures(kThreads, 0);
    std::vector<std::thread> threads;
    for (unsigned t = 0; t < kThreads; ++t) {
        threads.emplace_back([t, &failures] {
            std::minstd_rand random(t + 1);
            Live slots[kSlots];
            for (unsigned step = 0; step < kSteps; ++step) {
                Live& slot = slots[random() % kSlots];
                if (slot.p != nullptr) {
                    if (!holds(slot.p, slot.size, slot.value)) ++failures[t];
                    orv_free(slot.p);
                }
                slot = take(random, t, step);
                if (slot.p == nullptr) ++failures[t];
            }
            for (Live& slot : slots) {
                if (slot.p != nullptr && !holds(slot.p, slot.size, slot.value)) ++failures[t];
                orv_free(slot.p);
            }
        });
    }
    for (std::thread& thread : threads) thread.join();
    for (unsigned t = 0; t < kThreads; ++t) EXPECT_EQ(failures[t], 0) << "thread " << t;
}

// All threads wait here until the last one arrives.
class Rendezvous {
public:
    explicit Rendezvous(unsigned count) : count_(count) {}
    void wait()
    {
        std::unique_lock<std::mutex> lock(mutex_);
        const unsigned generation = generation_;
        if (++arrived_ == count_) {
            arrived_ = 0;
            ++generation_;
            changed_.notify_all();
        } else {
            changed_.wait(lock, [&] { return generation_ != generation; });
        }
    }

private:
    std::mutex mutex_;
    std::condition_variable changed_;
    unsigned count_;
    unsigned arrived_ = 0;
    unsigned generation_ = 0;
};

// Every round each thread fills blocks that its neighbour checks and frees,
// so that releases into foreign caches race with the owners' own use.
TEST(Memory, BlocksReleasedByOtherThreadsStayIntact)
{
    constexpr unsigned kThreads = 8;
    constexpr unsigned kRounds = 200;
    constexpr int kPerThread = 4;
    std::vector<Live> handed(kThreads * kPerThread);
    std::vector<int> failures(kThreads, 0);
    Rendezvous sync(kThreads);
    std::vector<std::thread> threads;
    for (unsigned t = 0; t < kThreads; ++t) {
        threads.emplace_back([&, t] {
            std::minstd_rand random(100 + t);
            for (unsigned round = 0; round < kRounds; ++round) {
                for (int i = 0; i < kPerThread; ++i) {
                    handed[t * kPerThread + i] = take(random, t, round * kPerThread + i);
                    if (handed[t * kPerThread + i].p == nullptr) ++failures[t];
                }
                // Blocks of this thread's own that are in use while the
                // neighbour frees the handed ones.
                Live own = take(random, t, ~round);
                sync.wait();
                const unsigned from = (t + 1) % kThreads;
                for (int i = 0; i < kPerThread; ++i) {
                    Live& live = handed[from * kPerThread + i];
                    if (live.p != nullptr && !holds(live.p, live.size, live.value)) ++failures[t];
                    orv_free(live.p);
                }
                if (own.p == nullptr || !holds(own.p, own.size, own.value)) ++failures[t];
                orv_free(own.p);
                sync.wait();
            }
        });
    }
    for (std::thread& thread : threads) thread.join();
    for (unsigned t = 0; t < kThreads; ++t) EXPECT_EQ(failures[t], 0) << "thread " << t;
}

TEST(Memory, LibraryWithoutTheEntryPointsIsRefused)
{
#if defined(_WIN32)
    const char* present = "kernel32.dll";
#else
    const char* present = "libc.so.6";
#endif
    const char* names[] = {present, "orv-no-such-library-here"};
    for (const char* name : names) {
        orv::mm::HbwFunctions functions = {};
        EXPECT_FALSE(orv::mm::load_high_bandwidth_library(name, functions)) << name;
        EXPECT_EQ(functions.malloc, nullptr) << name;
    }
}

// ---- settings, once per process -------------------------------------------

TEST(Memory, DISABLED_ChildReportsCacheUse)
{
    orvtest::child_marker(orvtest::kCaseMarker);
    const MemoryTotals base = thread_memory_totals();
    void* p = orv_malloc(1000, 64);
    orv_free(p);
    const MemoryTotals after = thread_memory_totals();
    std::printf("FastMM:%d kept:%lld\n", orv::fast_mm_enabled() ? 1 : 0,
                static_cast<long long>(after.blocks - base.blocks));
    // Read once: a later change of the variable is ignored.
    orvtest::set_env("ORV_DISABLE_FAST_MM", orv::fast_mm_enabled() ? "1" : nullptr);
    std::printf("FastMM:%d\n", orv::fast_mm_enabled() ? 1 : 0);
    orvtest::child_marker(orvtest::kEndMarker);
}

TEST(Memory, AnyValueOfDisableFastMmSendsReleasesBackAtOnce)
{
    const struct {
        const char* value;
        const char* printed;
    } cases[] = {
        {"1", "FastMM:0 kept:0\nFastMM:0\n"},
        {"0", "FastMM:0 kept:0\nFastMM:0\n"},
        {"no", "FastMM:0 kept:0\nFastMM:0\n"},
        {nullptr, "FastMM:1 kept:1\nFastMM:1\n"},
    };
    for (const auto& c : cases) {
        const orvtest::ChildResult child =
            orvtest::run_child("Memory.DISABLED_ChildReportsCacheUse", {{"ORV_DISABLE_FAST_MM", c.value}});
        ASSERT_EQ(child.status, 0) << child.out;
        const auto printed = orvtest::split_cases(child.out);
        ASSERT_EQ(printed.size(), 1u) << child.out;
        EXPECT_EQ(printed[0], c.printed) << (c.value != nullptr ? c.value : "(unset)");
    }
}

TEST(Memory, DISABLED_ChildReportsHighBandwidthLimit)
{
    orvtest::child_marker(orvtest::kCaseMarker);
    const orv::i64 limit = orv::mm::high_bandwidth_limit();
    void* p = orv_malloc(1000, 64);
    const unsigned flag = p != nullptr ? orv::mm::record_of(orv::mm::header_of(p))->high_bandwidth : 9u;
    // High-bandwidth memory only when there is some to take.
    const bool expected = orv::mm::high_bandwidth_available() && limit != 0;
    std::printf("limit:%lld placement:%s\n", static_cast<long long>(limit),
                flag == (expected ? 1u : 0u) ? "ok" : "wrong");
    orv_free(p);
    orvtest::child_marker(orvtest::kEndMarker);
}

TEST(Memory, FastMemoryLimitIsMegabytesAndNegativeMeansUnlimited)
{
    const struct {
        const char* value;
        long long limit;
    } cases[] = {
        {"0", 0}, {"5", 5LL << 20}, {"12MB", 12LL << 20}, {"abc", 0}, {"-1", -1}, {"-7", -1}, {nullptr, -1},
    };
    for (const auto& c : cases) {
        const orvtest::ChildResult child =
            orvtest::run_child("Memory.DISABLED_ChildReportsHighBandwidthLimit", {{"ORV_FAST_MEMORY_LIMIT", c.value}});
        ASSERT_EQ(child.status, 0) << child.out;
        const auto printed = orvtest::split_cases(child.out);
        ASSERT_EQ(printed.size(), 1u) << child.out;
        EXPECT_EQ(printed[0], "limit:" + std::to_string(c.limit) + " placement:ok\n")
            << (c.value != nullptr ? c.value : "(unset)");
    }
}

}  // namespace
