// Processor detection: the process's code path.
//
// The code path is decided once, on the first `cpu_detect()`, from the
// feature word, the vendor test, the reproducibility mode and the
// variables ORV_DEBUG_CPU_TYPE and ORV_ENABLE_INSTRUCTIONS, and never
// changes afterwards. The pieces of the decision that do not touch the
// process's state are offered as pure functions for tests.
#pragma once

#include "service/cpu_features.h"
#include "service/spinlock.h"

namespace orv {

// Signed 32-bit code of the processor-specific code path:
// 0 def (SSE2), 1 def (retired alias, only from ORV_DEBUG_CPU_TYPE=1),
// 2 mc (SSSE3), 3 mc3 (SSE4.2), 4 avx, 5 avx2, 6 avx512_qix, 7 avx512.
using CodePath = int;

inline constexpr CodePath kPathDef = 0;
inline constexpr CodePath kPathDefRetired = 1;
inline constexpr CodePath kPathMc = 2;
inline constexpr CodePath kPathMc3 = 3;
inline constexpr CodePath kPathAvx = 4;
inline constexpr CodePath kPathAvx2 = 5;
inline constexpr CodePath kPathAvx512Qix = 6;
inline constexpr CodePath kPathAvx512 = 7;
inline constexpr int kCodePathCount = 8;

// Short path name of `code` ("def", "def", "mc", "mc3", "avx", "avx2",
// "avx512_qix", "avx512"), or null outside 0..7.
const char* code_path_name(int code);
// The library-name entry of `code` ("orv_def.dll", ...), or null outside
// 0..7. Only the table of valid codes: no library is ever loaded.
const char* code_path_library(int code);
// True when the library-name table has an entry for `code`.
bool code_path_valid(int code);

// The enable flags of the code paths above 2.
struct EnableFlags {
    int sse42 = 1;
    int avx = 1;
    int avx2 = 1;
    int avx512_qix = 1;
    int avx512 = 0;  // server AVX-512: off unless enabled
};
inline constexpr EnableFlags kDefaultEnableFlags{};

// The cap code of an ORV_ENABLE_INSTRUCTIONS value: "AVX512_QIX" 6,
// "AVX512" 7, "AVX2" 5, "AVX" 4, "SSE4_2" 3, anything else (also null) -1.
// Exact, case-sensitive, whole-value comparison.
int parse_instruction_cap(const char* value);

// The enable flags after cap `cap`: for a cap of 3..7 every flag is 1 when
// its path is at most the cap; for any other cap `current` is kept.
EnableFlags enable_flags_for_cap(int cap, EnableFlags current);

// The ordered feature selection: 0 for another vendor's processor, else the
// highest allowed path by the features and flags. -1 for a processor below
// the minimum (no SSE2), where the process's selection ends the process.
CodePath select_code_path(FeatureWord features, int reference_vendor, const EnableFlags& flags);

// True when `features` hold the feature group of cap `cap` (3 SSE4.2,
// 4 AVX, 5 the AVX2 group, 6 the Qix group, 7 the server AVX-512 group);
// false for any other cap.
bool cap_features_present(int cap, FeatureWord features);

// The code path of reproducibility branch `branch` (3, 4, 5 give 0; 6, 7 2;
// 8 3; 9 4; 10 5; 11 6; 12 7), from the table indexed by (branch mod 64) - 3;
// -1 when that index lies outside the table.
CodePath cbwr_mode_code_path(int branch);

// Reads `text` with the C runtime's "%i" conversion (decimal, 0x hexadecimal,
// leading-zero octal). False when no integer can be read.
bool read_integer_i(const char* text, int* value);

// The code path of the process: decided on the first call, then cached.
// Ends the process (status 1) for a processor without SSE2 (messages 1210,
// 1211), an ORV_DEBUG_CPU_TYPE outside 0..7 (message 1213) and an invalid
// reproducibility mode (message 1209). Should a fatal-exit hook return
// instead, -1 is returned and nothing is cached.
CodePath cpu_detect();

// With `fresh` 0: the cached code (-1 before the first decision). Otherwise
// runs the feature selection (reading the cap first if not yet read;
// reproducibility mode and ORV_DEBUG_CPU_TYPE not consulted) and returns its
// result without caching it. Takes no lock.
CodePath cpu_detect_hardware(int fresh);

// Bit 9 (SSE4.1) of the feature word.
int cpu_has_sse41();
// SSE4.1 refinements allowed: by the processor with no or the automatic
// reproducibility mode, else by the branch (7 and above).
int cpu_sse41_allowed();
// Processor-tuned thresholds and partitions allowed: the vendor test with
// no or the automatic mode; any other branch but COMPATIBLE allows them.
int cpu_tuned_paths_allowed();

// The instruction cap code (-1 none) and the enable flags in force, as read
// from ORV_ENABLE_INSTRUCTIONS (reading it first if not yet read).
int cpu_instruction_cap();
EnableFlags cpu_enable_flags();

// The detection lock, shared with the reproducibility mode.
SpinLock& detection_lock();

}  // namespace orv
