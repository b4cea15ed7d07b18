// The per-thread count of the thread policy on POSIX: a pthread key made on
// first use and deleted at process exit.

#include <pthread.h>

#include <cstdint>
#include <cstdlib>

#include "service/spinlock.h"
#include "service/thread_policy.h"

namespace orv {
namespace {

enum SlotState : int { kSlotNone = 0, kSlotReady = 1, kSlotGone = 2 };

SpinLock g_slot_lock;
int g_slot_state = kSlotNone;
pthread_key_t g_slot_key;

void release_slot()
{
    SpinGuard guard(g_slot_lock);
    if (g_slot_state == kSlotReady) pthread_key_delete(g_slot_key);
    __atomic_store_n(&g_slot_state, kSlotGone, __ATOMIC_RELEASE);
}

// True when the key exists; a failed creation, like a released key, means
// that no thread has a count of its own.
bool slot_ready()
{
    int state = __atomic_load_n(&g_slot_state, __ATOMIC_ACQUIRE);
    if (state == kSlotNone) {
        SpinGuard guard(g_slot_lock);
        if (g_slot_state == kSlotNone) {
            if (pthread_key_create(&g_slot_key, nullptr) == 0) {
                __atomic_store_n(&g_slot_state, kSlotReady, __ATOMIC_RELEASE);
                std::atexit(release_slot);
            } else {
                __atomic_store_n(&g_slot_state, kSlotGone, __ATOMIC_RELEASE);
            }
        }
        state = g_slot_state;
    }
    return state == kSlotReady;
}

}  // namespace

int thread_count_override()
{
    if (!slot_ready()) return 0;
    return static_cast<int>(reinterpret_cast<std::intptr_t>(pthread_getspecific(g_slot_key)));
}

void set_thread_count_override(int n)
{
    if (slot_ready()) pthread_setspecific(g_slot_key, reinterpret_cast<void*>(static_cast<std::intptr_t>(n)));
}

}  // namespace orv
