// The memory manager's lower half: settings, the underlying allocators,
// the high-bandwidth budget and the block layout.

#include <cstdint>
#include <cstdlib>

#include "service/cpu_features.h"
#include "service/memory.h"
#include "service/memory_block.h"
#include "service/memory_os.h"
#include "service/platform.h"
#include "service/spinlock.h"

namespace orv {
namespace mm {
namespace {

// The system allocator as the four entry points the manager calls. Where a
// host could swap the C runtime's allocation functions for its own, the
// manager would route through the replacements; a runtime linked into this
// library offers no such swap, so the table always holds the system's.
// Nothing in the manager reallocates; the slot completes the family.
struct AllocatorTable {
    void* (*allocate)(std::size_t);
    void* (*reallocate)(void*, std::size_t);
    void (*release)(void*);
    void* (*allocate_for_cache)(std::size_t);
};

void* system_allocate(std::size_t size) { return std::malloc(size); }
void* system_reallocate(void* p, std::size_t size) { return std::realloc(p, size); }
void system_release(void* p) { std::free(p); }

constexpr AllocatorTable kAllocator = {system_allocate, system_reallocate, system_release, system_allocate};

// High-bandwidth blocks start on a 2 MiB boundary in large pages (kind 2),
// which is what makes them fast.
constexpr std::size_t kHighBandwidthAlignment = 0x200000;
constexpr int kHighBandwidthPageKind = 2;
constexpr i64 kUnlimited = -1;

// ---- settings ---------------------------------------------------------------
// State words: -1 unread; then the published answer.

int g_cache_state = -1;  // 1 cache disabled, 0 enabled
SpinLock g_cache_lock;

int g_hbw_state = -1;    // 1 library available, 0 not
SpinLock g_hbw_lock;
i64 g_hbw_limit = kUnlimited;
HbwFunctions g_hbw = {};

// Remaining high-bandwidth budget in bytes (only kept with a limit).
i64 g_hbw_remaining = 0;
SpinLock g_budget_lock;

void read_cache_setting()
{
    SpinGuard guard(g_cache_lock);
    if (g_cache_state >= 0) return;
    char value[32];
    const int disabled = platform::read_env("ORV_DISABLE_FAST_MM", value, sizeof value) > 0 ? 1 : 0;
    __atomic_store_n(&g_cache_state, disabled, __ATOMIC_RELEASE);
}

i64 parse_limit()
{
    char value[32];
    if (platform::read_env("ORV_FAST_MEMORY_LIMIT", value, sizeof value) <= 0) return kUnlimited;
    const long megabytes = std::atol(value);
    if (megabytes < 0) return kUnlimited;
    constexpr i64 kLargest = INT64_MAX >> 20;
    return megabytes > kLargest ? INT64_MAX : static_cast<i64>(megabytes) << 20;
}

void read_high_bandwidth_setting()
{
    SpinGuard guard(g_hbw_lock);
    if (g_hbw_state >= 0) return;
    g_hbw_limit = parse_limit();
    g_hbw_remaining = g_hbw_limit;
    int available = 0;
    // Only the many-core processors of this family carry on-package memory.
    if (cpu_has_features(kFeatureQixAvx512Group))
        available = load_high_bandwidth_library(memory_os::high_bandwidth_library_name(), g_hbw) ? 1 : 0;
    __atomic_store_n(&g_hbw_state, available, __ATOMIC_RELEASE);
}

void read_settings()
{
    if (__atomic_load_n(&g_cache_state, __ATOMIC_ACQUIRE) < 0) read_cache_setting();
    if (__atomic_load_n(&g_hbw_state, __ATOMIC_ACQUIRE) < 0) read_high_bandwidth_setting();
}

// ---- high-bandwidth budget --------------------------------------------------
// Reserved before the request and given back if it is not met, so two threads
// cannot both spend the last of it.

bool reserve_budget(std::size_t bytes)
{
    if (g_hbw_limit == kUnlimited) return true;
    SpinGuard guard(g_budget_lock);
    if (static_cast<std::uint64_t>(g_hbw_remaining) <= bytes) return false;
    g_hbw_remaining -= static_cast<i64>(bytes);
    return true;
}

void give_back_budget(std::size_t bytes)
{
    if (g_hbw_limit == kUnlimited) return;
    SpinGuard guard(g_budget_lock);
    g_hbw_remaining += static_cast<i64>(bytes);
}

void* high_bandwidth_allocate(std::size_t bytes)
{
    if (!reserve_budget(bytes)) return nullptr;
    void* p = nullptr;
    if (g_hbw.memalign_psize(&p, kHighBandwidthAlignment, bytes, kHighBandwidthPageKind) != 0 || p == nullptr)
        p = g_hbw.malloc(bytes);
    if (p == nullptr) give_back_budget(bytes);
    return p;
}

// ---- statistics ---------------------------------------------------------------
// Process totals of the blocks held from the underlying allocators. Off: no operation of the
// library turns them on; set g_statistics_on from a debugger to watch them.

int g_statistics_on = 0;
SpinLock g_statistics_lock;
i64 g_statistics_bytes = 0;
i64 g_statistics_blocks = 0;
i64 g_statistics_peak = 0;

void count_in_statistics(i64 bytes, i64 blocks)
{
    if (!g_statistics_on) return;
    SpinGuard guard(g_statistics_lock);
    g_statistics_bytes += bytes;
    g_statistics_blocks += blocks;
    if (g_statistics_bytes > g_statistics_peak) g_statistics_peak = g_statistics_bytes;
}

}  // namespace

int effective_alignment(int alignment)
{
    if (alignment < kDefaultAlignment || (alignment & (alignment - 1)) != 0) return kDefaultAlignment;
    return alignment;
}

bool cache_disabled()
{
    read_settings();
    return g_cache_state == 1;
}

i64 high_bandwidth_limit()
{
    read_settings();
    return g_hbw_limit;
}

bool high_bandwidth_available()
{
    read_settings();
    return g_hbw_state == 1;
}

bool load_high_bandwidth_library(const char* name, HbwFunctions& out)
{
    for (const char* c = name; *c != '\0'; ++c)
        if (*c == '/' || *c == '\\') return false;
    void* library = memory_os::open_library(name);
    if (library == nullptr) return false;
    void* memalign_psize = memory_os::find_symbol(library, "hbw_posix_memalign_psize");
    void* malloc = memory_os::find_symbol(library, "hbw_malloc");
    void* free = memory_os::find_symbol(library, "hbw_free");
    if (memalign_psize == nullptr || malloc == nullptr || free == nullptr) {
        memory_os::close_library(library);
        return false;
    }
    out.memalign_psize = reinterpret_cast<HbwMemalignPsize>(memalign_psize);
    out.malloc = reinterpret_cast<HbwMalloc>(malloc);
    out.free = reinterpret_cast<HbwFree>(free);
    return true;
}

void* obtain_block(std::size_t size, int alignment, std::uint32_t cache_owner, Purpose purpose)
{
    read_settings();
    const std::size_t a = static_cast<std::size_t>(alignment);
    // Room for the record, the header and the worst alignment slack.
    const std::size_t overhead = a + sizeof(RawRecord) + sizeof(BlockHeader);
    if (size > SIZE_MAX - overhead) return nullptr;
    const std::size_t bytes = size + overhead;

    void* raw = nullptr;
    std::uint32_t high_bandwidth = 0;
    if (g_hbw_state == 1 && (raw = high_bandwidth_allocate(bytes)) != nullptr) high_bandwidth = 1;
    if (raw == nullptr)
        raw = purpose == Purpose::kCache ? kAllocator.allocate_for_cache(bytes) : kAllocator.allocate(bytes);
    if (raw == nullptr) return nullptr;

    RawRecord* record = static_cast<RawRecord*>(raw);
    *record = {raw, high_bandwidth, cache_owner, bytes, kRecordMagic};
    // At least a header's worth of bytes between the record and the user
    // pointer; the slack below it is what rounding down leaves.
    const std::uintptr_t past_record = reinterpret_cast<std::uintptr_t>(record + 1);
    const std::uintptr_t user = (past_record + sizeof(BlockHeader) + a) & ~(static_cast<std::uintptr_t>(a) - 1);
    BlockHeader* header = reinterpret_cast<BlockHeader*>(user) - 1;
    *header = {raw, size + a + sizeof(BlockHeader), 0, static_cast<std::uint32_t>(alignment)};
    count_in_statistics(static_cast<i64>(header->total), 1);
    return reinterpret_cast<void*>(user);
}

void return_block(void* user)
{
    count_in_statistics(-static_cast<i64>(header_of(user)->total), -1);
    RawRecord* record = record_of(header_of(user));
    if (record->high_bandwidth) {
        const std::size_t bytes = record->size;
        g_hbw.free(record->raw);
        give_back_budget(bytes);
    } else {
        kAllocator.release(record->raw);
    }
}

}  // namespace mm

bool fast_mm_enabled() { return !mm::cache_disabled(); }

bool alloc_failed(const void* p, const char* caller) { return p == nullptr; }

}  // namespace orv
