// The reproducibility mode, read from ORV_CBWR once per process.
//
// The mode is a branch code: 1 no mode, 2 AUTO, 3 COMPATIBLE, 4 SSE2 (also
// "SSE3"), 6 SSSE3, 7 SSE4_1, 8 SSE4_2, 9 AVX, 10 AVX2, 11 AVX512_QIX,
// 12 AVX512. The parse and the decision are offered as pure functions.
#pragma once

namespace orv {

inline constexpr int kBranchNone = 1;
inline constexpr int kBranchAuto = 2;
inline constexpr int kBranchCompatible = 3;
inline constexpr int kBranchSse2 = 4;
inline constexpr int kBranchSsse3 = 6;
inline constexpr int kBranchSse41 = 7;
inline constexpr int kBranchSse42 = 8;
inline constexpr int kBranchAvx = 9;
inline constexpr int kBranchAvx2 = 10;
inline constexpr int kBranchAvx512Qix = 11;
inline constexpr int kBranchAvx512 = 12;

// With `what` 1: the branch (reads ORV_CBWR on first use under the detection
// lock; 1 when no mode is stored). With -1: the stored mode word as it is
// (0 before the first branch query or with no mode). Otherwise -2.
int cbwr_get(int what);
// The same without taking the detection lock; only for `cpu_detect`, which
// holds it already.
int cbwr_get_unlocked(int what);

// The highest branch this processor supports: 2 for another vendor's
// processor; else by `cpu_detect_hardware(1)`: path 0 or 1 gives 4, 2 gives
// 7 with SSE4.1 and 6 without, 3 gives 8, 4 9, 5 10, 6 11, 7 12; else -4.
int cbwr_best_branch();
// The same rule over given answers.
int cbwr_best_branch_for(int reference_vendor, int hardware_path, int has_sse41);

// Whether the mode lets a level-2 routine use a team: with no mode; never
// for the compatible branch and those up to SSE4.1; with AUTO only on a
// processor whose best branch lies beyond them.
bool cbwr_admits_threads();

// The keyword code of an ORV_CBWR value: 0 when null or empty; after an
// optional leading "BRANCH=", the code of the keyword that equals the rest
// of the value exactly; 2 for "AUTO" and for anything unknown.
int cbwr_parse_keyword(const char* value);
// The stored mode word for keyword code `keyword` (as parse gives it) on a
// processor with the vendor answer and best branch given: a branch the
// processor cannot run, or may not use, becomes 2 (AUTO).
int cbwr_resolve(int keyword, int reference_vendor, int best_branch);
// Parse and resolve in one.
int cbwr_decide(const char* value, int reference_vendor, int best_branch);

// The branch's name for the trace ("OFF", "AUTO", "COMPATIBLE", "SSE2",
// "SSSE3", "SSE4_1", "SSE4_2", "AVX", "AVX2", "AVX512_QIX", "AVX512"), or
// "?%x" of the value for any other code, into `buf` (`size` bytes, at most
// 31 characters written). Returns `buf`.
const char* cbwr_branch_name(int branch, char* buf, int size);

}  // namespace orv
