// Topology probe on Linux: the process's affinity mask and sysfs.
//
// Only the processors this process may run on count, so that a program
// started under taskset or in a container with a CPU limit is not told it
// owns the whole machine.

#include <dirent.h>
#include <fcntl.h>
#include <sched.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include "service/memory.h"
#include "service/topology.h"

namespace orv {
namespace {

// Scratch for the probe, used once per process: kept out of the calling
// thread's buffer cache, where it would hold an entry for nothing.
void* probe_alloc(std::size_t size) { return orv_malloc_uncached(size, 64); }
void probe_free(void* p) { orv_free(p); }

// The process's affinity mask, in a set large enough for this machine;
// null on failure. The caller frees it with CPU_FREE.
cpu_set_t* affinity_mask(int& cpus_in_set)
{
    for (int n = 1024; n <= (1 << 20); n *= 2) {
        cpu_set_t* set = CPU_ALLOC(n);
        if (set == nullptr) return nullptr;
        if (sched_getaffinity(0, CPU_ALLOC_SIZE(n), set) == 0) {
            cpus_in_set = n;
            return set;
        }
        CPU_FREE(set);
        // EINVAL: the kernel's mask is wider than this set.
        if (errno != EINVAL) return nullptr;
    }
    return nullptr;
}

// A small integer from a one-line sysfs file.
bool read_sysfs_int(const char* path, long& value)
{
    const int fd = open(path, O_RDONLY | O_CLOEXEC);
    if (fd < 0) return false;
    char text[32];
    const ssize_t got = read(fd, text, sizeof text - 1);
    close(fd);
    if (got <= 0) return false;
    text[got] = '\0';
    char* end = nullptr;
    value = std::strtol(text, &end, 10);
    return end != text;
}

// Distinct (package, core) pairs among the processors of the mask; 0 when
// any of them has no topology files.
int count_physical_cores(const cpu_set_t* set, int cpus_in_set, int logical)
{
    auto* keys = static_cast<std::uint64_t*>(probe_alloc(sizeof(std::uint64_t) * static_cast<std::size_t>(logical)));
    if (keys == nullptr) return 0;
    const std::size_t set_size = CPU_ALLOC_SIZE(cpus_in_set);
    int count = 0;
    bool complete = true;
    for (int cpu = 0; cpu < cpus_in_set && count < logical; ++cpu) {
        if (!CPU_ISSET_S(cpu, set_size, set)) continue;
        char path[96];
        long package = 0, core = 0;
        std::snprintf(path, sizeof path, "/sys/devices/system/cpu/cpu%d/topology/physical_package_id", cpu);
        complete = read_sysfs_int(path, package);
        std::snprintf(path, sizeof path, "/sys/devices/system/cpu/cpu%d/topology/core_id", cpu);
        complete = complete && read_sysfs_int(path, core);
        if (!complete) break;
        keys[count++] = (static_cast<std::uint64_t>(static_cast<std::uint32_t>(package)) << 32) |
                        static_cast<std::uint32_t>(core);
    }
    int cores = 0;
    if (complete) {
        std::sort(keys, keys + count);
        cores = static_cast<int>(std::unique(keys, keys + count) - keys);
    }
    probe_free(keys);
    return cores;
}

// Entries "node<digits>" of the NUMA directory; 0 when it cannot be read.
int count_numa_nodes()
{
    DIR* dir = opendir("/sys/devices/system/node");
    if (dir == nullptr) return 0;
    int nodes = 0;
    while (const dirent* entry = readdir(dir)) {
        const char* name = entry->d_name;
        if (name[0] != 'n' || name[1] != 'o' || name[2] != 'd' || name[3] != 'e' || name[4] == '\0') continue;
        const char* p = name + 4;
        while (*p >= '0' && *p <= '9') ++p;
        if (*p == '\0') ++nodes;
    }
    closedir(dir);
    return nodes;
}

}  // namespace

Topology probe_topology()
{
    Topology topology;
    int cpus_in_set = 0;
    if (cpu_set_t* set = affinity_mask(cpus_in_set)) {
        const int logical = CPU_COUNT_S(CPU_ALLOC_SIZE(cpus_in_set), set);
        if (logical > 0) {
            topology.logical_cpus = logical;
            const int cores = count_physical_cores(set, cpus_in_set, logical);
            if (cores > 0) topology.physical_cores = cores;
        }
        CPU_FREE(set);
    }
    const int nodes = count_numa_nodes();
    if (nodes > 0) topology.numa_nodes = nodes;
    return topology;
}

}  // namespace orv
