// Inside the memory manager: the block layout, the underlying allocators
// (high-bandwidth or system) and the process-wide settings.
//
// Layout of one block, from the start of the underlying allocation:
//
//   raw:       RawRecord (32 bytes)
//              padding, so that user is a multiple of the alignment
//   user - 24: BlockHeader (24 bytes)
//   user:      the caller's bytes
//
// The underlying allocation has size + alignment + 56 bytes, enough for the
// worst placement; BlockHeader::total holds size + alignment + 24, the size
// the block was asked for without the record.
#pragma once

#include <cstddef>
#include <cstdint>

#include "service/types.h"

namespace orv::mm {

// At the start of the underlying allocation; tells orv_free where the block
// came from.
struct RawRecord {
    void* raw;                     // the record's own address
    std::uint32_t high_bandwidth;  // 1 when taken from high-bandwidth memory
    std::uint32_t cache_owner;     // thread index of the cache holding it, 0 none
    std::uint64_t size;            // bytes of the underlying allocation
    std::uint64_t magic;           // kRecordMagic
};
static_assert(sizeof(RawRecord) == 32);

// Directly below the user pointer.
struct BlockHeader {
    void* raw;                   // start of the underlying allocation
    std::uint64_t total;         // size + alignment + 24
    std::uint32_t offload;       // registered with a coprocessor; always 0 here
    std::uint32_t alignment;     // the effective alignment
};
static_assert(sizeof(BlockHeader) == 24);

inline constexpr std::uint64_t kRecordMagic = 4096;
inline constexpr int kDefaultAlignment = 64;
// Larger requests are rare and would pin too much memory in a cache.
inline constexpr std::size_t kLargestCachedSize = 0x8000000;  // 128 MiB

// `alignment` when it is at least 64 and a power of two, else 64.
int effective_alignment(int alignment);

inline BlockHeader* header_of(void* user) { return static_cast<BlockHeader*>(user) - 1; }
inline const BlockHeader* header_of(const void* user) { return static_cast<const BlockHeader*>(user) - 1; }
inline RawRecord* record_of(const BlockHeader* header) { return static_cast<RawRecord*>(header->raw); }

// Process-wide settings, read from the environment on first use.
bool cache_disabled();            // ORV_DISABLE_FAST_MM
i64 high_bandwidth_limit();       // ORV_FAST_MEMORY_LIMIT in bytes; -1 unlimited
bool high_bandwidth_available();  // the library was found on a capable processor

// Which underlying entry point a block is taken from.
enum class Purpose { kDirect, kCache };

// A new block of `size` bytes aligned to `alignment` (already effective),
// with its record and header written; `cache_owner` goes into the record.
// Null when the sizes overflow or memory is exhausted. Touches no thread's
// totals.
void* obtain_block(std::size_t size, int alignment, std::uint32_t cache_owner, Purpose purpose);

// Gives a block of obtain_block back to the allocator it came from.
void return_block(void* user);

// Running totals of the calling thread: blocks (and their header totals)
// it took from the underlying allocators, its cached ones included, less
// those it gave back. A thread that frees another's uncached block counts
// the release, so one thread's figures can go below zero. Threads beyond
// the first 1024 share one pair.
struct MemoryTotals {
    i64 bytes;
    i64 blocks;
};
MemoryTotals thread_memory_totals();

// The high-bandwidth library's entry points.
using HbwMemalignPsize = int (*)(void** memptr, std::size_t alignment, std::size_t size, int page_kind);
using HbwMalloc = void* (*)(std::size_t size);
using HbwFree = void (*)(void* p);
struct HbwFunctions {
    HbwMemalignPsize memalign_psize;
    HbwMalloc malloc;
    HbwFree free;
};

// Loads library `name` (beside this library first, then from the system's
// directory) and fills `out` when all three entry points are there. A name
// with a path separator is refused. On failure the library is released and
// `out` is left alone.
bool load_high_bandwidth_library(const char* name, HbwFunctions& out);

}  // namespace orv::mm
