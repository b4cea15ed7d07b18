// Scratch memory for the engines: aligned blocks with a small per-thread
// cache of released buffers.
//
// A driver that runs again and again with the same sizes gets its buffers
// back from the calling thread's cache without a system call. Blocks may
// come from high-bandwidth memory on the many-core processors that have it.
#pragma once

#include <cstddef>

namespace orv {

// A block of at least `size` bytes aligned to the effective alignment
// (`alignment` when it is a power of two of at least 64, else 64). Null for
// size 0 or when memory is exhausted. May come from the calling thread's
// cache; release it with orv_free.
void* orv_malloc(std::size_t size, int alignment);

// Releases a block of orv_malloc or orv_malloc_uncached; null is ignored. A
// cached block is only marked free and kept for the next request.
void orv_free(void* p);

// Like orv_malloc, but never from or into the cache.
void* orv_malloc_uncached(std::size_t size, int alignment);

// Withholds every block of orv_malloc (the engines' scratch buffers) for which
// it answers true, as if memory were exhausted: a hook that only the library's
// own tests set, to reach the fallbacks of the buffers' callers. Null
// otherwise, which costs one test per allocation.
using AllocationRefusal = bool (*)(std::size_t size, int alignment);
extern AllocationRefusal allocation_refusal;

// Whether the per-thread cache is in use (ORV_DISABLE_FAST_MM unset or empty).
bool fast_mm_enabled();

// True when a freshly allocated `p` is null. Callers then carry on with a
// computation that needs no buffer; nothing is reported. `caller` names the
// routine for a debugger's breakpoint condition.
bool alloc_failed(const void* p, const char* caller);

}  // namespace orv
