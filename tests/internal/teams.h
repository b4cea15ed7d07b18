// Pieces of the tests of the threaded drivers: the thread count a driver
// may use, the team the runtime grants, a dispatch slot replaced for the
// length of a test, full-precision inputs and the comparison of results bit
// for bit.
#pragma once

#include <omp.h>

#include <cstring>
#include <type_traits>
#include <vector>

#include "service/dispatch.h"
#include "orv_test.h"
#include "service/thread_policy.h"
#include "service/types.h"

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

// A value using all 53 bits of each part, so that a wrong order of additions
// shows in the result.
template <typename T>
T value(Rng& rng)
{
    if constexpr (std::is_same_v<T, orv::dcomplex>) {
        const double re = rng.full();
        return {re, rng.full()};
    } else {
        return rng.full();
    }
}

// The same bits throughout.
template <typename T>
bool same(const std::vector<T>& a, const std::vector<T>& b)
{
    return a.size() == b.size() && std::memcmp(a.data(), b.data(), a.size() * sizeof(T)) == 0;
}

}  // namespace orvtest
