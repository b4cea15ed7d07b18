// A process-wide thread-local word, made on first use and released at
// process exit (or when the library is unloaded).
#pragma once

#include <cstdint>

#include "service/platform.h"
#include "service/spinlock.h"

namespace orv {

class ThreadSlot {
public:
    constexpr ThreadSlot() = default;
    ~ThreadSlot();
    ThreadSlot(const ThreadSlot&) = delete;
    ThreadSlot& operator=(const ThreadSlot&) = delete;

    // True when the slot exists; a failed creation, like a released slot,
    // means that no thread has a value of its own.
    bool ready();
    // The calling thread's value; 0 until it writes one, or without a slot.
    std::uintptr_t read();
    // Ignored without a slot.
    void write(std::uintptr_t value);

private:
    enum State : int { kNone = 0, kReady = 1, kGone = 2 };
    SpinLock lock_;
    int state_ = kNone;
    platform::ThreadKey key_ = 0;
};

}  // namespace orv
