// The memory manager's front: thread indices, the per-thread caches and
// running totals; orv_malloc, orv_malloc_uncached and orv_free.
//
// Each allocating thread gets an index 1..1024 that selects its record in a
// process-wide table. A record holds the thread's totals and points to its
// cache of at most five blocks. Only the owner fills or empties its cache;
// another thread that frees one of its blocks marks it free under the
// record's guard, because leaving a cached block in a foreign thread's hands
// would let the owner hand it out again after the system has reused it.

#include <cstdint>
#include <cstring>

#include "service/memory.h"
#include "service/memory_block.h"
#include "service/spinlock.h"
#include "service/thread_slot.h"

namespace orv {
namespace mm {
namespace {

constexpr unsigned kMaxThreads = 1024;
// Slot value of a thread that came after the table was full.
constexpr unsigned kNoRecord = kMaxThreads + 1;
constexpr int kCacheEntries = 5;

struct CacheEntry {
    void* raw;
    void* user;
    std::size_t size;      // last requested
    std::size_t capacity;  // size + alignment at creation
    int in_use;
};

struct ThreadCache {
    CacheEntry entries[kCacheEntries];
    int count;
};

// One cache line per thread, so that neighbours do not share one.
struct alignas(64) ThreadRecord {
    SpinLock guard;
    ThreadCache* cache;
    i64 bytes;
    i64 blocks;
};
static_assert(sizeof(ThreadRecord) == 64);

ThreadRecord g_records[kMaxThreads];
unsigned g_next_index = 0;

ThreadSlot g_index_slot;  // each thread's index, 0 until assigned

// Threads past the table share one pair of totals. Updaters raise the word
// by 2 for the time of their atomic adds; a reader makes it odd to see both
// halves of the pair at one moment, and updaters wait while it is odd.
int g_shared_word = 0;
i64 g_shared_bytes = 0;
i64 g_shared_blocks = 0;

// The calling thread's index, handed out on its first allocation or
// release; 0 when it has none yet and `assign` is false or the system has no
// slot, kNoRecord past the table.
unsigned thread_index(bool assign)
{
    if (!g_index_slot.ready()) return 0;
    unsigned index = static_cast<unsigned>(g_index_slot.read());
    if (index == 0 && assign) {
        index = __atomic_add_fetch(&g_next_index, 1, __ATOMIC_RELAXED);
        if (index == 0 || index > kMaxThreads) index = kNoRecord;
        g_index_slot.write(index);
    }
    return index;
}

ThreadRecord* record_for(unsigned index)
{
    return index >= 1 && index <= kMaxThreads ? &g_records[index - 1] : nullptr;
}

void add_to_shared(i64 bytes, i64 blocks)
{
    for (;;) {
        int seen = __atomic_load_n(&g_shared_word, __ATOMIC_RELAXED);
        if ((seen & 1) == 0 &&
            __atomic_compare_exchange_n(&g_shared_word, &seen, seen + 2, false, __ATOMIC_ACQUIRE, __ATOMIC_RELAXED))
            break;
        __builtin_ia32_pause();
    }
    __atomic_add_fetch(&g_shared_bytes, bytes, __ATOMIC_RELAXED);
    __atomic_add_fetch(&g_shared_blocks, blocks, __ATOMIC_RELAXED);
    __atomic_sub_fetch(&g_shared_word, 2, __ATOMIC_RELEASE);
}

MemoryTotals read_shared()
{
    int expected = 0;
    while (!__atomic_compare_exchange_n(&g_shared_word, &expected, 1, false, __ATOMIC_ACQUIRE, __ATOMIC_RELAXED)) {
        expected = 0;
        __builtin_ia32_pause();
    }
    const MemoryTotals totals = {g_shared_bytes, g_shared_blocks};
    __atomic_store_n(&g_shared_word, 0, __ATOMIC_RELEASE);
    return totals;
}

void account(unsigned index, i64 bytes, i64 blocks)
{
    if (ThreadRecord* record = record_for(index)) {
        SpinGuard guard(record->guard);
        record->bytes += bytes;
        record->blocks += blocks;
    } else {
        add_to_shared(bytes, blocks);
    }
}

i64 total_of(const void* user) { return static_cast<i64>(header_of(user)->total); }

// The cache itself is bookkeeping, not a block of the thread's: it is not
// counted and lives as long as the process.
bool create_cache(ThreadRecord& record)
{
    void* memory = obtain_block(sizeof(ThreadCache), kDefaultAlignment, 0, Purpose::kDirect);
    if (memory == nullptr) return false;
    std::memset(memory, 0, sizeof(ThreadCache));
    SpinGuard guard(record.guard);
    record.cache = static_cast<ThreadCache*>(memory);
    return true;
}

// A free entry of the same capacity can serve the request as it stands only
// if its address suits the alignment and the block reaches far enough; with
// the same size and alignment it always does.
bool serves(const CacheEntry& entry, std::size_t size, int alignment)
{
    const std::uintptr_t user = reinterpret_cast<std::uintptr_t>(entry.user);
    const RawRecord* raw = static_cast<const RawRecord*>(entry.raw);
    return user % static_cast<std::uintptr_t>(alignment) == 0 &&
           user + size <= reinterpret_cast<std::uintptr_t>(entry.raw) + raw->size;
}

void evict(ThreadRecord& record, CacheEntry& entry)
{
    record.bytes -= total_of(entry.user);
    record.blocks -= 1;
    return_block(entry.user);
}

// Serves the request from the thread's cache. `full` is set when every entry
// is in use and the block must come from outside the cache.
void* take_from_cache(ThreadRecord& record, unsigned index, std::size_t size, int alignment, bool& full)
{
    const std::size_t need = size + static_cast<std::size_t>(alignment);
    SpinGuard guard(record.guard);
    ThreadCache& cache = *record.cache;

    int smaller = -1;  // first free entry too small
    int larger = -1;   // smallest free entry that is big enough
    for (int i = 0; i < cache.count; ++i) {
        CacheEntry& entry = cache.entries[i];
        if (entry.in_use) continue;
        if (entry.capacity == need && serves(entry, size, alignment)) {
            entry.in_use = 1;
            entry.size = size;
            header_of(entry.user)->alignment = static_cast<std::uint32_t>(alignment);
            return entry.user;
        }
        if (entry.capacity < need) {
            if (smaller < 0) smaller = i;
        } else if (larger < 0 || entry.capacity < cache.entries[larger].capacity) {
            larger = i;
        }
    }

    // A larger entry is not handed out as it stands: it would stay pinned to
    // a size its owner no longer asks for. A smaller one is of no use at all,
    // so it goes first.
    int slot = cache.count;
    if (slot == kCacheEntries) {
        slot = smaller >= 0 ? smaller : larger;
        if (slot < 0) {
            full = true;
            return nullptr;
        }
        evict(record, cache.entries[slot]);
    }

    void* user = obtain_block(size, alignment, index, Purpose::kCache);
    if (user == nullptr) {
        // The evicted entry is gone; close the gap with the last one.
        if (slot < cache.count) cache.entries[slot] = cache.entries[--cache.count];
        return nullptr;
    }
    cache.entries[slot] = {header_of(user)->raw, user, size, need, 1};
    if (slot == cache.count) ++cache.count;
    record.bytes += total_of(user);
    record.blocks += 1;
    return user;
}

// `user` belongs to the cache of thread `owner`; whoever frees it, it is
// only marked free. A pointer no longer in that cache was evicted already
// and is left alone.
void release_to_cache(unsigned owner, const void* user)
{
    ThreadRecord* record = record_for(owner);
    if (record == nullptr) return;
    SpinGuard guard(record->guard);
    if (record->cache == nullptr) return;
    for (int i = 0; i < record->cache->count; ++i) {
        CacheEntry& entry = record->cache->entries[i];
        if (entry.user == user) {
            entry.in_use = 0;
            return;
        }
    }
}

}  // namespace

MemoryTotals thread_memory_totals()
{
    const unsigned index = thread_index(false);
    if (index == 0) return {0, 0};  // the thread has not used the manager yet
    if (ThreadRecord* record = record_for(index)) {
        SpinGuard guard(record->guard);
        return {record->bytes, record->blocks};
    }
    return read_shared();
}

}  // namespace mm

AllocationRefusal allocation_refusal = nullptr;

void* orv_malloc_uncached(std::size_t size, int alignment)
{
    if (size < 1) return nullptr;
    void* user = mm::obtain_block(size, mm::effective_alignment(alignment), 0, mm::Purpose::kDirect);
    if (user != nullptr) mm::account(mm::thread_index(true), mm::total_of(user), 1);
    return user;
}

void* orv_malloc(std::size_t size, int alignment)
{
    if (size == 0) return nullptr;
    if (__builtin_expect(allocation_refusal != nullptr, 0) && allocation_refusal(size, alignment)) return nullptr;
    if (mm::cache_disabled() || size > mm::kLargestCachedSize) return orv_malloc_uncached(size, alignment);
    const unsigned index = mm::thread_index(true);
    mm::ThreadRecord* record = mm::record_for(index);
    if (record == nullptr || (record->cache == nullptr && !mm::create_cache(*record)))
        return orv_malloc_uncached(size, alignment);
    bool full = false;
    void* user = mm::take_from_cache(*record, index, size, mm::effective_alignment(alignment), full);
    return full ? orv_malloc_uncached(size, alignment) : user;
}

void orv_free(void* p)
{
    if (p == nullptr) return;
    const mm::BlockHeader* header = mm::header_of(p);
    if (header->raw == nullptr) return;
    const unsigned owner = mm::record_of(header)->cache_owner;
    if (owner != 0) {
        mm::release_to_cache(owner, p);
        return;
    }
    // The releasing thread's totals, so a thread that frees what others
    // allocated gets its own record too.
    mm::account(mm::thread_index(true), -mm::total_of(p), -1);
    mm::return_block(p);
}

}  // namespace orv
