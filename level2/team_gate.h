// Whether a level-2 driver other than the general product may consider a
// team at all: a code path past the baseline, a processor whose tuned paths
// the library may use, and a reproducibility mode that admits level-2 teams.
// The size of the problem and the thread policy decide the rest.
#pragma once

#include "service/cbwr.h"
#include "service/cpu_detect.h"

namespace orv::l2 {

inline bool team_gate_open()
{
    return cpu_detect() >= kPathMc && cpu_tuned_paths_allowed() && cbwr_admits_threads();
}

}  // namespace orv::l2
