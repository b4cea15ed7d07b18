// Topology probe on Windows.
//
// From Windows 7 on the system describes its processors itself (cores, NUMA
// nodes, processor groups). The two functions for that are looked up by name
// so that the library still loads on older systems; there each processor of
// the affinity mask is visited in turn and asked for its identifiers.

#include <windows.h>

#include <cpuid.h>

#include <cstdint>

#include "service/memory.h"
#include "service/topology.h"

namespace orv {
namespace {

constexpr DWORD kAllRelationships = 0xFFFF;
constexpr WORD kAllProcessorGroups = 0xFFFF;
constexpr DWORD kRelationProcessorCore = 0;
constexpr DWORD kRelationNumaNode = 1;

using GetLogicalProcessorInformationExFn = BOOL(WINAPI*)(DWORD relationship, void* buffer, DWORD* length);
using GetActiveProcessorCountFn = DWORD(WINAPI*)(WORD group);

// The fixed start of every variable-length processor-information record.
struct RecordHeader {
    DWORD relationship;
    DWORD size;
};

// Scratch for the probe, used once per process: kept out of the calling
// thread's buffer cache, where it would hold an entry for nothing.
void* probe_alloc(std::size_t size) { return orv_malloc_uncached(size, 64); }
void probe_free(void* p) { orv_free(p); }

// Windows 7 is version 6.1. The major and minor numbers are compared in
// order, so 7.0 or 10.0 pass and 6.0 does not.
bool has_processor_information()
{
    OSVERSIONINFOEXA wanted = {};
    wanted.dwOSVersionInfoSize = sizeof wanted;
    wanted.dwMajorVersion = 6;
    wanted.dwMinorVersion = 1;
    ULONGLONG condition = VerSetConditionMask(0, VER_MAJORVERSION, VER_GREATER_EQUAL);
    condition = VerSetConditionMask(condition, VER_MINORVERSION, VER_GREATER_EQUAL);
    return VerifyVersionInfoA(&wanted, VER_MAJORVERSION | VER_MINORVERSION, condition) != FALSE;
}

void probe_by_processor_information(Topology& topology)
{
    HMODULE kernel = LoadLibraryA("kernel32.dll");
    if (kernel == nullptr) return;
    auto information = reinterpret_cast<GetLogicalProcessorInformationExFn>(
        reinterpret_cast<void*>(GetProcAddress(kernel, "GetLogicalProcessorInformationEx")));
    auto active_count = reinterpret_cast<GetActiveProcessorCountFn>(
        reinterpret_cast<void*>(GetProcAddress(kernel, "GetActiveProcessorCount")));
    if (information == nullptr || active_count == nullptr) return;

    // The sizing call must fail for want of a buffer and report the length.
    DWORD length = 0;
    if (information(kAllRelationships, nullptr, &length) || GetLastError() != ERROR_INSUFFICIENT_BUFFER || length == 0)
        return;
    auto* records = static_cast<unsigned char*>(probe_alloc(length));
    if (records == nullptr) return;
    if (information(kAllRelationships, records, &length)) {
        int cores = 0, nodes = 0;
        for (DWORD at = 0; at + sizeof(RecordHeader) <= length;) {
            RecordHeader header;
            __builtin_memcpy(&header, records + at, sizeof header);
            if (header.size < sizeof header) break;  // malformed: stop rather than loop
            if (header.relationship == kRelationProcessorCore) ++cores;
            if (header.relationship == kRelationNumaNode) ++nodes;
            at += header.size;
        }
        if (cores > 0) topology.physical_cores = cores;
        if (nodes > 0) topology.numa_nodes = nodes;
        const DWORD logical = active_count(kAllProcessorGroups);
        if (logical > 0) topology.logical_cpus = static_cast<int>(logical);
    }
    probe_free(records);
}

// Number of low bits of an APIC id that tell the logical processors of one
// core apart.
unsigned smt_id_bits()
{
    unsigned a, b, c, d;
    const unsigned max_leaf = __get_cpuid_max(0, nullptr);
    if (max_leaf >= 0xB) {
        __cpuid_count(0xB, 0, a, b, c, d);
        if ((b & 0xFFFF) != 0) return a & 0x1F;
    }
    __cpuid(1, a, b, c, d);
    if ((d & (1u << 28)) == 0) return 0;  // one logical processor per package
    const unsigned logical_per_package = (b >> 16) & 0xFF;
    unsigned cores_per_package = 1;
    if (max_leaf >= 4) {
        __cpuid_count(4, 0, a, b, c, d);
        if ((a & 0x1F) != 0) cores_per_package = (a >> 26) + 1;
    }
    if (cores_per_package == 1 && __get_cpuid_max(0x80000000, nullptr) >= 0x80000008) {
        __cpuid(0x80000008, a, b, c, d);
        cores_per_package = (c & 0xFF) + 1;
    }
    unsigned per_core = cores_per_package > 0 ? logical_per_package / cores_per_package : 1;
    unsigned bits = 0;
    while ((1u << bits) < per_core) ++bits;
    return bits;
}

// The APIC id of the processor running the caller (x2APIC id when present).
unsigned current_apic_id()
{
    unsigned a, b, c, d;
    if (__get_cpuid_max(0, nullptr) >= 0xB) {
        __cpuid_count(0xB, 0, a, b, c, d);
        if ((b & 0xFFFF) != 0) return d;
    }
    __cpuid(1, a, b, c, d);
    return b >> 24;
}

void probe_by_affinity(Topology& topology)
{
    DWORD_PTR process_mask = 0, system_mask = 0;
    if (!GetProcessAffinityMask(GetCurrentProcess(), &process_mask, &system_mask) || process_mask == 0) return;
    constexpr int kMaskBits = static_cast<int>(sizeof(DWORD_PTR) * 8);
    unsigned core_ids[kMaskBits];
    int logical = 0, cores = 0;
    const unsigned shift = smt_id_bits();
    HANDLE thread = GetCurrentThread();
    DWORD_PTR original = 0;
    for (int cpu = 0; cpu < kMaskBits; ++cpu) {
        const DWORD_PTR bit = static_cast<DWORD_PTR>(1) << cpu;
        if ((process_mask & bit) == 0) continue;
        const DWORD_PTR previous = SetThreadAffinityMask(thread, bit);
        if (previous == 0) continue;
        if (original == 0) original = previous;
        Sleep(0);  // let the scheduler move this thread onto the processor
        const unsigned core = current_apic_id() >> shift;
        ++logical;
        bool seen = false;
        for (int i = 0; i < cores && !seen; ++i) seen = core_ids[i] == core;
        if (!seen) core_ids[cores++] = core;
    }
    if (original != 0) SetThreadAffinityMask(thread, original);
    if (logical > 0) topology.logical_cpus = logical;
    if (cores > 0) topology.physical_cores = cores;
}

}  // namespace

Topology probe_topology()
{
    Topology topology;
    if (has_processor_information())
        probe_by_processor_information(topology);
    else
        probe_by_affinity(topology);
    return topology;
}

}  // namespace orv
