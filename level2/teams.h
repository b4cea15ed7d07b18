// How the level-2 drivers other than the general product form their teams
// and share out the work.
#pragma once

#include "level1/frame/frame.h"
#include "service/cbwr.h"
#include "service/cpu_detect.h"
#include "service/thread_policy.h"

namespace orv::l2 {

// Whether a team may be considered at all: a code path past the baseline, a
// processor whose tuned paths the library may use, and a reproducibility
// mode that admits level-2 teams. The size of the problem and the thread
// policy decide the rest.
inline bool team_gate_open()
{
    return cpu_detect() >= kPathMc && cpu_tuned_paths_allowed() && cbwr_admits_threads();
}

// How many parts to cut n columns (or rows) into: 1, to stay on this thread,
// below `min_n` or with the gate closed; else one a thread, but never parts
// of fewer than `per_part` while there are fewer than that many a thread.
inline i64 team_parts(i64 n, i64 min_n, i64 per_part)
{
    if (n < min_n || !team_gate_open()) return 1;
    const i64 threads = get_max_threads_for_domain(kDomainBlas);
    if (threads <= 1) return 1;
    if (n <= per_part * threads) return n / per_part > 1 ? n / per_part : 1;
    return threads;
}

// Thread t's share of n rows or columns in a team of `team` (at least 2) cut
// into two groups: the first team / 2 threads share the first `first` of
// them, the others the rest, each in runs of a multiple of 8, the last thread
// taking what is left (possibly nothing). Callers give the first group fewer
// of the longer rows or columns.
inline frame::Chunk two_group_share(i64 n, i64 first, i64 team, i64 t)
{
    const i64 first_group = team / 2;
    const i64 c1 = first / first_group / 8 * 8;
    if (t < first_group) return {t * c1, c1, n};
    const i64 c2 = (n - first_group * c1) / (team - first_group) / 8 * 8;
    const i64 start = first_group * c1 + (t - first_group) * c2;
    if (t < team - 1) return {start, c2, n};
    return {start, n - start > 0 ? n - start : 0, n};
}

// From this order on the two groups get unequal shares.
inline constexpr i64 kUnequalGroupsFrom = 1025;

}  // namespace orv::l2
