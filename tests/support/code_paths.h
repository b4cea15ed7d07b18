// Which code paths this processor can execute. Each path's kernels are built
// with its instruction sets (cmake/Flags.cmake), so a run forced onto a path
// the processor lacks would stop at the first such instruction: tests of
// such a path are skipped, and say so.
#pragma once

#include <cstdio>
#include <cstdlib>

namespace orvtest {

inline bool has_ssse3() { return __builtin_cpu_supports("ssse3"); }
inline bool has_sse42() { return has_ssse3() && __builtin_cpu_supports("sse4.2") && __builtin_cpu_supports("popcnt"); }
inline bool has_avx() { return has_sse42() && __builtin_cpu_supports("avx"); }
inline bool has_avx2()
{
    return has_avx() && __builtin_cpu_supports("avx2") && __builtin_cpu_supports("fma") &&
           __builtin_cpu_supports("bmi") && __builtin_cpu_supports("bmi2") && __builtin_cpu_supports("f16c");
}
inline bool has_avx512_qix()
{
    return has_avx2() && __builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512cd");
}
inline bool has_avx512()
{
    return has_avx512_qix() && __builtin_cpu_supports("avx512dq") && __builtin_cpu_supports("avx512bw") &&
           __builtin_cpu_supports("avx512vl");
}

// Code paths 0 to 7 (1 is the retired alias of 0).
inline bool code_path_runs_here(long code)
{
    switch (code) {
    case 0:
    case 1: return true;
    case 2: return has_ssse3();
    case 3: return has_sse42();
    case 4: return has_avx();
    case 5: return has_avx2();
    case 6: return has_avx512_qix();
    case 7: return has_avx512();
    default: return true;  // not a path: the library itself refuses it
    }
}

// The code path ORV_DEBUG_CPU_TYPE forces (read as the library reads it:
// decimal, 0x hexadecimal or 0 octal), or -1 when it forces none.
inline long forced_code_path()
{
    const char* value = std::getenv("ORV_DEBUG_CPU_TYPE");
    if (value == nullptr || *value == '\0') return -1;
    char* end = nullptr;
    const long code = std::strtol(value, &end, 0);
    return end == value ? -1 : code;
}

// Marker that CTest's SKIP_REGULAR_EXPRESSION turns into a skipped test.
inline constexpr const char* kSkipMarker = "ORV_SKIP:";

// When ORV_DEBUG_CPU_TYPE forces a path this processor cannot execute, says
// so and returns true.
inline bool announce_unrunnable_forced_path()
{
    const long code = forced_code_path();
    if (code < 0 || code_path_runs_here(code)) return false;
    std::printf("%s code path %ld needs instructions this processor lacks\n", kSkipMarker, code);
    std::fflush(stdout);
    return true;
}

}  // namespace orvtest
