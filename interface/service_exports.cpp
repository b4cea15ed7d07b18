// The thread-count service exports.

#include <omp.h>

#include "orv.h"

namespace {

// Count requested by orv_set_num_threads; -1 until a positive one arrives.
int g_requested_threads = -1;

}  // namespace

extern "C" int orv_get_max_threads(void)
{
    // Until the thread policy exists, a requested count wins over the
    // OpenMP runtime's maximum.
    const int requested = __atomic_load_n(&g_requested_threads, __ATOMIC_RELAXED);
    return requested > 0 ? requested : omp_get_max_threads();
}

extern "C" void orv_set_num_threads(const int* n)
{
    const int value = *n;
    if (value > 0) __atomic_store_n(&g_requested_threads, value, __ATOMIC_RELAXED);
}
