// Pieces of the tests of the threaded drivers: the thread count a driver
// may use, the team the runtime grants, and a dispatch slot replaced for the
// length of a test.
#pragma once

#include <omp.h>

#include <type_traits>

#include "service/dispatch.h"
#include "service/thread_policy.h"

namespace orvtest {

// The count the policy hands this thread's drivers while the object lives.
class Threads {
public:
    explicit Threads(int n) { orv::set_thread_count_override(n); }
    ~Threads() { orv::set_thread_count_override(0); }
    Threads(const Threads&) = delete;
    Threads& operator=(const Threads&) = delete;
};

// The team the runtime grants this thread for a region of `parts` threads.
inline int granted(long parts)
{
    int team = 0;
#pragma omp parallel num_threads(static_cast<int>(parts))
    {
        if (omp_get_thread_num() == 0) team = omp_get_num_threads();
    }
    return team;
}

// Replaces the slot of member M (for instance &Level1Kernels::ddot) for the
// object's life and restores it.
template <auto M>
class SlotSwap {
public:
    using Record = typename orv::MemberOf<decltype(M)>::type;
    using Fn = std::remove_reference_t<decltype(orv::Family<Record>::slots.*M)>;
    explicit SlotSwap(Fn fn) : saved_(slot()) { slot() = fn; }
    ~SlotSwap() { slot() = saved_; }
    SlotSwap(const SlotSwap&) = delete;
    SlotSwap& operator=(const SlotSwap&) = delete;

private:
    static Fn& slot() { return orv::Family<Record>::slots.*M; }
    Fn saved_;
};

}  // namespace orvtest
