// The fixed sequence that every BLAS export runs around its inner layer.
//
//   level 1:          mode = entry_mode(cache); widen; run_traced(...)
//   level 2 and 3:    register_default_error_handler(); mode = entry_mode(cache);
//                     if (check_xxx(...)) return; widen; run_traced(...)
//
// Each export owns one cache: `static const int* verbose = &kVerboseUnknown;`.
// It points at a read-only -1 until the first traced decision stores the
// address of the process-wide verbose cell in it; from then on reading the
// mode costs one load.
#pragma once

#include <type_traits>

namespace orv {

extern const int kVerboseUnknown;  // the read-only -1 every cache starts at

// Address of the process-wide verbose cell, deciding ORV_VERBOSE on first use.
const int* verbose_mode_cell();
// Seconds since an arbitrary origin.
double seconds_clock();
// Prints one trace line for a call whose text is `call_text`.
void trace_print(int iface, const char* call_text, double seconds);
// Offers xerbla to the error-hook slot; the first registration wins.
void register_default_error_handler();

inline constexpr int kCallTextSize = 200;
// Forms a call text of at most kCallTextSize - 1 characters into `buf`.
void format_call_text(char* buf, const char* fmt, ...) __attribute__((format(printf, 2, 3)));

// The cache is written by whichever thread resolves it first, always with the
// same address, so relaxed atomic accesses are all the ordering it needs.
inline int entry_mode(const int* const& cache)
{
    return __atomic_load_n(__atomic_load_n(&cache, __ATOMIC_RELAXED), __ATOMIC_RELAXED);
}

// Times the inner call when the mode is 1 and prints its trace line when the
// mode is non-zero; the line is printed after the inner layer has returned.
template <typename Text>
class CallTrace {
public:
    CallTrace(int mode, Text& text) : mode_(mode), text_(text), start_(mode == 1 ? -seconds_clock() : 0.0) {}
    CallTrace(const CallTrace&) = delete;
    CallTrace& operator=(const CallTrace&) = delete;
    ~CallTrace()
    {
        if (mode_ == 0) return;
        double elapsed = start_;
        if (elapsed != 0.0) elapsed += seconds_clock();
        char buf[kCallTextSize];
        text_(buf);
        trace_print(-1, buf, elapsed);
    }

private:
    int mode_;
    Text& text_;
    double start_;
};

template <typename Inner, typename Text>
[[gnu::noinline]] decltype(auto) run_traced_slow(const int*& cache, int mode_at_entry, Inner& inner, Text& text)
{
    if (mode_at_entry == -1) __atomic_store_n(&cache, verbose_mode_cell(), __ATOMIC_RELAXED);
    CallTrace<Text> trace(entry_mode(cache), text);
    return inner();
}

// Steps 5 to 8: with tracing off (the mode read at entry is 0) only the inner
// layer runs; otherwise the mode is resolved, the call timed and traced.
template <typename Inner, typename Text>
inline decltype(auto) run_traced(const int*& cache, int mode_at_entry, Inner&& inner, Text&& text)
{
    if (mode_at_entry == 0) return inner();
    return run_traced_slow(cache, mode_at_entry, inner, text);
}

}  // namespace orv
