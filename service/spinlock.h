// The lock that guards every lazily initialised process-wide setting.
//
// A 32-bit word, 0 free and 1 held, so that it can sit in zero-initialised
// static storage and needs no constructor. Critical sections are short and
// run once per process, so spinning is cheaper than a kernel object; after a
// long spin the taker yields so that a descheduled holder can finish.
#pragma once

#include "service/platform.h"

namespace orv {

class SpinLock {
public:
    constexpr SpinLock() = default;
    SpinLock(const SpinLock&) = delete;
    SpinLock& operator=(const SpinLock&) = delete;

    void lock()
    {
        int attempts = 0;
        for (;;) {
            int expected = 0;
            if (__atomic_compare_exchange_n(&word_, &expected, 1, false, __ATOMIC_ACQUIRE, __ATOMIC_RELAXED)) return;
            if (attempts < kSpinAttempts) {
                ++attempts;
                __builtin_ia32_pause();
            } else {
                platform::yield_processor();
            }
        }
    }
    void unlock() { __atomic_store_n(&word_, 0, __ATOMIC_RELEASE); }

private:
    static constexpr int kSpinAttempts = 5000;
    int word_ = 0;
};

// Holds a SpinLock for the rest of the scope.
class SpinGuard {
public:
    explicit SpinGuard(SpinLock& lock) : lock_(lock) { lock_.lock(); }
    ~SpinGuard() { lock_.unlock(); }
    SpinGuard(const SpinGuard&) = delete;
    SpinGuard& operator=(const SpinGuard&) = delete;

private:
    SpinLock& lock_;
};

}  // namespace orv
