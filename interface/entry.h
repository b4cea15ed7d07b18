// The fixed sequence that every BLAS export runs around its inner layer.
//
//   level 1:          mode = entry_mode(cache); widen; run_traced(...)
//   level 2 and 3:    register_default_error_handler(); mode = entry_mode(cache);
//                     if (check_xxx(...)) return; widen; run_traced(...)
//
// The sequence is written once per argument-list shape (level1_shapes.h,
// level2_shapes.h, level3_shapes.h); an export is one call of its shape with
// its name and its inner layer.
//
// Each export owns one cache: `static const int* verbose = &kVerboseUnknown;`
// (in its shape's instance for its inner layer). It points at a read-only -1
// until the first traced decision stores the address of the process-wide
// verbose cell in it; from then on reading the mode costs one load.
#pragma once

#include <type_traits>

#include "service/dispatch.h"
#include "service/types.h"

namespace orv {

extern const int kVerboseUnknown;  // the read-only -1 every cache starts at

// Address of the process-wide verbose cell, deciding ORV_VERBOSE on first use.
const int* verbose_mode_cell();
// Seconds since an arbitrary origin.
double seconds_clock();
// Prints one trace line for a call whose text is `call_text`.
void trace_print(int iface, const char* call_text, double seconds);
// Fills the error-hook slot on the first call: with the host program's own
// xerbla_ when the process defines one, else with xerbla. The first
// registration wins.
void register_default_error_handler();

// The address of caller data, handed to the inner layer as the pointer type
// its parameter declares. Complex data arrives untyped and takes the inner
// layer's element type; a typed address converts only to its own type.
template <typename T>
struct Typed {
    T* address;
    template <typename U>
    operator U*() const
    {
        return static_cast<U*>(address);
    }
};
template <typename T>
Typed<T> typed(T* address)
{
    return {address};
}

// Calls the inner layer: a member of a dispatched family (such as
// &Level3Kernels::dgemm) through its slot, a plain function (a threaded
// driver, a single-thread member) directly.
template <auto Inner, typename... Args>
inline decltype(auto) call_inner(Args... args)
{
    if constexpr (std::is_member_object_pointer_v<decltype(Inner)>)
        return dispatch<Inner>(args...);
    else
        return Inner(args...);
}

// The cache is written by whichever thread resolves it first, always with the
// same address, so relaxed atomic accesses are all the ordering it needs.
inline int entry_mode(const int* const& cache)
{
    return __atomic_load_n(__atomic_load_n(&cache, __ATOMIC_RELAXED), __ATOMIC_RELAXED);
}

// A call that may be traced: the mode it runs under and its start time (the
// negated clock reading, 0 when the call is not timed).
struct TraceStart {
    int mode;
    double start;
};
// Resolves the cache when it still holds -1, reads the mode and, when it is
// 1, the clock.
[[gnu::cold]] TraceStart start_trace(const int*& cache, int mode_at_entry);
// When the mode is non-zero, prints the call's trace line: the call text
// formed from `name`, `fmt` and the arguments, and the elapsed time.
[[gnu::cold]] void finish_trace(const TraceStart& trace, const char* name, const char* fmt, ...);

// How a call text shows an argument: an option letter by its character, an
// integer by its value, anything else by its address.
inline int shown(const char* option) { return *option; }
inline int shown(const int* integer) { return *integer; }
inline const void* shown(const void* address) { return address; }

// Steps 5 to 8: with tracing off (the mode read at entry is 0) only the inner
// layer runs; otherwise the mode is resolved and the call timed and traced,
// its line formed from the caller's arguments after the inner layer returned
// (integers are read again then). Both branches call the inner layer in
// line, so the untraced one carries nothing of the tracing.
template <typename Inner, typename... Args>
[[gnu::always_inline]] inline auto run_traced(const int*& cache, int mode_at_entry, Inner&& inner, const char* name,
                                              const char* fmt, Args... args)
{
    if (__builtin_expect(mode_at_entry == 0, 1)) return inner();
    const TraceStart trace = start_trace(cache, mode_at_entry);
    if constexpr (std::is_void_v<decltype(inner())>) {
        inner();
        finish_trace(trace, name, fmt, shown(args)...);
    } else {
        const auto result = inner();
        finish_trace(trace, name, fmt, shown(args)...);
        return result;
    }
}

}  // namespace orv
