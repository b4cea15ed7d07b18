// Verbose call tracing: the ORV_VERBOSE decision, the call text and the
// trace line with its one-time banner.

#include "interface/verbose.h"

#include <cstdarg>
#include <cstdio>
#include <cstdlib>

#include "interface/entry.h"
#include "interface/messages.h"
#include "interface/seconds_clock.h"
#include "interface/version.h"
#include "service/platform.h"
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

// The run-time configuration part of a trace line (reproducibility branch,
// dynamic threads, fast memory manager, thread id, thread counts, work
// division) joins here, after the elapsed time, once the runtime services
// that own those settings exist.
void append_configuration(BoundedText& /*text*/) {}

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

void format_call_text(char* buf, const char* fmt, ...)
{
    std::va_list args;
    va_start(args, fmt);
    std::vsnprintf(buf, kCallTextSize, fmt, args);
    va_end(args);
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
    text.append(" %.2fGHz", processor_brand_ghz());
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
