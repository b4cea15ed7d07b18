// The thread-count service exports: thin doors into the thread policy.

#include "orv.h"
#include "service/thread_policy.h"

extern "C" int orv_get_max_threads(void) { return orv::get_max_threads(); }

extern "C" void orv_set_num_threads(const int* n)
{
    // Fortran convention: the count comes by address and is read once.
    const int value = *n;
    orv::set_num_threads(value);
}
