// Which road a real matrix product takes, told to an observer that only the
// library's own tests install. The triangular solve, built on the same
// buffer, tells its roads the same way (direct, scaled for alpha 0, blocked,
// fallback). With no observer the cost is one test of a
// pointer that is always null, so the branch is always predicted.
#pragma once

namespace orv {

enum class GemmEvent {
    none,            // m or n below 1: nothing to do
    direct,          // the direct small-matrix kernel
    tiny,            // the tiny-matrix kernel
    scaled,          // alpha 0 (or k 0): C scaled by beta and nothing more
    thin,            // the unpacked kernel, chosen for a thin shape or a small product
    blocked,         // the packed, blocked driver
    fallback,        // the unpacked kernel on the whole product, for want of a work buffer
    buffer_request,  // asked before the work buffer is acquired
};

// The answer matters only for buffer_request: true withholds the buffer, as
// if the memory manager had none.
using GemmObserver = bool (*)(GemmEvent event);

extern GemmObserver gemm_observer;

inline bool gemm_event(GemmEvent event)
{
    if (__builtin_expect(gemm_observer != nullptr, 0)) return gemm_observer(event);
    return false;
}

// Installs `observer` (null removes it) and returns the previous one. For
// tests only; not safe while products run on other threads.
GemmObserver set_gemm_observer(GemmObserver observer);

}  // namespace orv
