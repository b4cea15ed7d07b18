// Verbose call tracing: the ORV_VERBOSE decision, the call text and the
// trace line with its one-time banner.

#include "interface/verbose.h"

#include <cstdarg>
#include <cstdio>
#include <cstdlib>

#include <omp.h>

#include "interface/entry.h"
#include "interface/messages.h"
#include "interface/seconds_clock.h"
#include "interface/version.h"
#include "service/cbwr.h"
#include "service/memory.h"
#include "service/platform.h"
#include "service/thread_policy.h"
#include "service/spinlock.h"

namespace orv {

const int kVerboseUnknown = -1;

namespace {

int g_verbose_mode = -1;
int g_banner_printed = 0;
SpinLock g_banner_lock;

// The offload component is not part of this library: no coprocessors.
constexpr int kCoprocessorDevices = 0;

const char* interface_name(int iface, char* scratch, int size)
{
    switch (iface) {
    case -2: return "stdcall";
    case -1: return "cdecl";
    case 1: return "lp64";
    case 2: return "ilp64";
    default: std::snprintf(scratch, static_cast<std::size_t>(size), "iface%x", static_cast<unsigned>(iface));
             return scratch;
    }
}

// The host's share of the work and the coprocessors it is divided with: the
// offload component is not part of this library, so the host does it all.
constexpr double kHostWorkShare = 1.0;

// The run-time configuration that decided how the call ran: reproducibility
// branch, dynamic threads, fast memory manager, calling thread, thread counts
// (with each domain whose count differs from the general one), work division.
void append_configuration(BoundedText& text)
{
    char branch[32];
    text.append(" CNR:%s", cbwr_branch_name(cbwr_get(1), branch, sizeof branch));
    text.append(" Dyn:%d", get_dynamic());
    text.append(" FastMM:%d", fast_mm_enabled() ? 1 : 0);
    text.append(" TID:%-2d", omp_get_thread_num());
    const int max_threads = get_max_threads();
    text.append(" NThr:%d", max_threads);
    static constexpr const char* kDomainLabels[] = {",BLAS:%d", ",FFT:%d", ",KOR:%d", ",TAVELIN:%d"};
    for (int domain = kDomainBlas; domain <= kDomainTavelin; ++domain) {
        const int count = get_max_threads_for_domain(domain);
        if (count != max_threads) text.append(kDomainLabels[domain - kDomainBlas], count);
    }
    text.append(" WDiv:HOST:%+6.3f", kHostWorkShare);
    for (int device = 0; device < kCoprocessorDevices; ++device) text.append(" WDiv:%d:%+6.3f", device, 0.0);
}

}  // namespace

int parse_verbose_value(const char* text)
{
    char* end = nullptr;
    const long value = std::strtol(text, &end, 0);
    if (end == text || *end != '\0') return 0;
    return value == 1 ? 1 : 0;
}

const int* verbose_mode_cell()
{
    if (__atomic_load_n(&g_verbose_mode, __ATOMIC_RELAXED) != -1) return &g_verbose_mode;
    char value[128] = {};
    const int length = platform::read_env("ORV_VERBOSE", value, sizeof value);
    const int mode = length > 0 ? parse_verbose_value(value) : 0;
    // Racing first callers all store the same decision.
    __atomic_store_n(&g_verbose_mode, mode, __ATOMIC_RELAXED);
    return &g_verbose_mode;
}

namespace {

void vformat_call_text(char* buf, const char* name, const char* fmt, std::va_list args)
{
    BoundedText text(buf, kCallTextSize);
    int length = 0;
    while (name[length] != '\0' && name[length] != ' ') ++length;
    text.append("%.*s", length, name);
    text.vappend(fmt, args);
}

}  // namespace

void format_call_text(char* buf, const char* name, const char* fmt, ...)
{
    std::va_list args;
    va_start(args, fmt);
    vformat_call_text(buf, name, fmt, args);
    va_end(args);
}

TraceStart start_trace(const int*& cache, int mode_at_entry)
{
    if (mode_at_entry == -1) __atomic_store_n(&cache, verbose_mode_cell(), __ATOMIC_RELAXED);
    const int mode = entry_mode(cache);
    return {mode, mode == 1 ? -seconds_clock() : 0.0};
}

void finish_trace(const TraceStart& trace, const char* name, const char* fmt, ...)
{
    if (trace.mode == 0) return;
    double elapsed = trace.start;
    if (elapsed != 0.0) elapsed += seconds_clock();
    char buf[kCallTextSize];
    std::va_list args;
    va_start(args, fmt);
    vformat_call_text(buf, name, fmt, args);
    va_end(args);
    trace_print(-1, buf, elapsed);
}

void append_elapsed(BoundedText& text, double t)
{
    if (t <= 0.0)
        text.append("%.2fs", 0.0);
    else if (t > 1.0)
        text.append("%.2fs", t);
    else if (t * 1000.0 > 1.0)
        text.append("%.2fms", t * 1000.0);
    else if (t * 1e6 > 1.0)
        text.append("%.2fus", t * 1e6);
    else
        text.append("%.0fns", t * 1e9);
}

void format_trace_banner(BoundedText& text, int iface)
{
    VersionRecord version;
    get_version(&version);
    text.append("ORV_VERBOSE Calix(R) ORV %d.%d", version.major, version.minor);
    if (version.update > 0) text.append(" Update %d", version.update);
    text.append(" %s build %s for %s %s", version.product_status, version.build, version.platform,
                version.processor);
    text.append(", %s", platform::system_name());
    // Processors whose brand string names no frequency show the measured one.
    const double brand_ghz = processor_brand_ghz();
    text.append(" %.2fGHz", brand_ghz > 0.0 ? brand_ghz : timestamp_rate_ghz());
    if (iface != 0) {
        char scratch[16];
        text.append(" %s", interface_name(iface, scratch, sizeof scratch));
    }
    text.append(" %s", "calix_thread");
    text.append(" NQIXDev:%d", kCoprocessorDevices);
}

void trace_print(int iface, const char* call_text, double seconds)
{
    char timing[kTraceTextSize];
    BoundedText text(timing, sizeof timing);
    append_elapsed(text, seconds);
    append_configuration(text);

    if (__atomic_load_n(&g_banner_printed, __ATOMIC_ACQUIRE) == 0) {
        char banner_buf[kTraceTextSize];
        BoundedText banner(banner_buf, sizeof banner_buf);
        format_trace_banner(banner, iface);
        SpinGuard guard(g_banner_lock);
        if (__atomic_load_n(&g_banner_printed, __ATOMIC_RELAXED) == 0) {
            print_formatted("%s\n", banner.c_str());
            __atomic_store_n(&g_banner_printed, 1, __ATOMIC_RELEASE);
        }
    }
    print_formatted("ORV_VERBOSE %s %s\n", call_text, text.c_str());
}

}  // namespace orv
