#include "service/thread_slot.h"

namespace orv {

ThreadSlot::~ThreadSlot()
{
    SpinGuard guard(lock_);
    if (state_ == kReady) platform::delete_thread_key(key_);
    __atomic_store_n(&state_, kGone, __ATOMIC_RELEASE);
}

bool ThreadSlot::ready()
{
    int state = __atomic_load_n(&state_, __ATOMIC_ACQUIRE);
    if (state == kNone) {
        SpinGuard guard(lock_);
        if (state_ == kNone)
            __atomic_store_n(&state_, platform::create_thread_key(&key_) ? kReady : kGone, __ATOMIC_RELEASE);
        state = state_;
    }
    return state == kReady;
}

std::uintptr_t ThreadSlot::read() { return ready() ? platform::read_thread_key(key_) : 0; }

void ThreadSlot::write(std::uintptr_t value)
{
    if (ready()) platform::write_thread_key(key_, value);
}

}  // namespace orv
