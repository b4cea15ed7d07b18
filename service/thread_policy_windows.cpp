// The per-thread count of the thread policy on Windows: a TLS index taken on
// first use and freed at process exit.

#include <windows.h>

#include <cstdint>
#include <cstdlib>

#include "service/spinlock.h"
#include "service/thread_policy.h"

namespace orv {
namespace {

enum SlotState : int { kSlotNone = 0, kSlotReady = 1, kSlotGone = 2 };

SpinLock g_slot_lock;
int g_slot_state = kSlotNone;
DWORD g_slot_index = TLS_OUT_OF_INDEXES;

void release_slot()
{
    SpinGuard guard(g_slot_lock);
    if (g_slot_state == kSlotReady) TlsFree(g_slot_index);
    __atomic_store_n(&g_slot_state, kSlotGone, __ATOMIC_RELEASE);
}

// True when the index exists; a failed allocation, like a freed index, means
// that no thread has a count of its own.
bool slot_ready()
{
    int state = __atomic_load_n(&g_slot_state, __ATOMIC_ACQUIRE);
    if (state == kSlotNone) {
        SpinGuard guard(g_slot_lock);
        if (g_slot_state == kSlotNone) {
            g_slot_index = TlsAlloc();
            if (g_slot_index != TLS_OUT_OF_INDEXES) {
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
    return static_cast<int>(reinterpret_cast<std::intptr_t>(TlsGetValue(g_slot_index)));
}

void set_thread_count_override(int n)
{
    if (slot_ready()) TlsSetValue(g_slot_index, reinterpret_cast<void*>(static_cast<std::intptr_t>(n)));
}

}  // namespace orv
