// What the operating system says about the processors this process may use.
//
// Defined per platform in topology_posix.cpp and topology_windows.cpp. The
// thread policy caps its answers by the physical core count, so a probe that
// cannot find out leaves every count at 1: one thread is always safe.
#pragma once

namespace orv {

struct Topology {
    int logical_cpus = 1;
    int physical_cores = 1;
    int numa_nodes = 1;
};

// Asks the operating system; every count is at least 1.
Topology probe_topology();

}  // namespace orv
