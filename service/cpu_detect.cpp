// Processor detection and the code-path decision.

#include "service/cpu_detect.h"

#include <cstdio>
#include <cstring>

#include "interface/messages.h"
#include "service/cbwr.h"
#include "service/platform.h"

namespace orv {
namespace {

struct PathEntry {
    const char* name;
    const char* library;
};

// Indexed by code path. The library names only mark the valid codes.
constexpr PathEntry kPaths[kCodePathCount] = {
    {"def", "orv_def.dll"},
    {"def", "orv_def.dll"},
    {"mc", "orv_mc.dll"},
    {"mc3", "orv_mc3.dll"},
    {"avx", "orv_avx.dll"},
    {"avx2", "orv_avx2.dll"},
    {"avx512_qix", "orv_avx512_qix.dll"},
    {"avx512", "orv_avx512.dll"},
};

// Reproducibility branch to code path, indexed by (branch mod 64) - 3.
constexpr CodePath kModePath[] = {0, 0, 0, 2, 2, 3, 4, 5, 6, 7};

constexpr int kEnvBufferSize = 30;

// Process-wide detection state, all static.
CodePath g_code_path = -1;
int g_cap = -1;
int g_cap_read = 0;
EnableFlags g_flags = kDefaultEnableFlags;
SpinLock g_detection_lock;
// The tuned-paths query keeps its own copy of the vendor answer.
int g_tuned_vendor = -1;

// Reads ORV_ENABLE_INSTRUCTIONS once per process.
void read_instruction_cap()
{
    if (__atomic_load_n(&g_cap_read, __ATOMIC_ACQUIRE) != 0) return;
    char buf[kEnvBufferSize];
    const int length = platform::read_env("ORV_ENABLE_INSTRUCTIONS", buf, sizeof buf);
    // An absent variable keeps the cap (-1); so does an empty one, which
    // matches no keyword.
    if (length > 0) {
        g_cap = parse_instruction_cap(buf);
        g_flags = enable_flags_for_cap(g_cap, g_flags);
    }
    __atomic_store_n(&g_cap_read, 1, __ATOMIC_RELEASE);
}

// The feature selection on this processor with the flags in force; -1 for a
// processor below the minimum.
CodePath run_selection() { return select_code_path(cpu_feature_word(), cpu_is_reference_vendor(), g_flags); }

// The fatal end of a processor without SSE2 (called without the lock held).
CodePath below_minimum()
{
    print_message(0, kMsgMinimumRequirements, 0);
    print_message(0, kMsgNeedSse2, 0);
    fatal_exit(1);
    return -1;
}

void publish(CodePath code) { __atomic_store_n(&g_code_path, code, __ATOMIC_RELEASE); }

// Publishes the selection's result and releases the lock, or ends the
// process for a processor below the minimum.
CodePath publish_selection(CodePath code)
{
    if (code < 0) {
        g_detection_lock.unlock();
        return below_minimum();
    }
    publish(code);
    g_detection_lock.unlock();
    return code;
}

// The decision of the first `cpu_detect`, under the detection lock, which
// every path below releases.
CodePath decide_locked()
{
    const int branch = cbwr_get_unlocked(1);

    char buf[kEnvBufferSize];
    if (platform::read_env("ORV_DEBUG_CPU_TYPE", buf, sizeof buf) > 0) {
        int forced = 0;
        if (read_integer_i(buf, &forced)) {
            if (forced >= 0 && forced <= 7) {
                if (forced == kPathAvx512) g_flags.avx512 = 1;
                publish(forced);
                g_detection_lock.unlock();
                return forced;
            }
            g_detection_lock.unlock();
            print_message(0, kMsgCpuNotSupported, 1, forced);
            fatal_exit(1);
            return -1;
        }
    }

    if (branch == kBranchNone || branch == kBranchAuto) {
        read_instruction_cap();
        return publish_selection(run_selection());
    }

    const CodePath mode_path = cbwr_mode_code_path(branch);
    read_instruction_cap();
    const int cap = g_cap;

    if (mode_path < 0 || !code_path_valid(mode_path)) {
        // A guard: the reproducibility query never yields such a mode. The
        // selection's result has no library entry for the invalid mode.
        print_message(0, kMsgBadReproducibility, 0);
        const CodePath rejected = run_selection();
        g_detection_lock.unlock();
        if (rejected < 0) return below_minimum();
        fatal_exit(1);
        return -1;
    }

    if (cap == -1 || mode_path <= cap) {
        publish(mode_path);
        g_detection_lock.unlock();
        return mode_path;
    }

    // The cap lies below the mode's path: the cap wins where the processor
    // has the cap's own instructions.
    if (cap_features_present(cap, cpu_feature_word())) return publish_selection(run_selection());
    publish(mode_path);
    g_detection_lock.unlock();
    return mode_path;
}

}  // namespace

const char* code_path_name(int code) { return code >= 0 && code < kCodePathCount ? kPaths[code].name : nullptr; }

const char* code_path_library(int code)
{
    return code >= 0 && code < kCodePathCount ? kPaths[code].library : nullptr;
}

bool code_path_valid(int code)
{
    const char* library = code_path_library(code);
    return library != nullptr && library[0] != '\0';
}

int parse_instruction_cap(const char* value)
{
    if (value == nullptr) return -1;
    // In this order, each compared with its terminating zero.
    static constexpr struct {
        const char* keyword;
        int cap;
    } kCaps[] = {{"AVX512_QIX", 6}, {"AVX512", 7}, {"AVX2", 5}, {"AVX", 4}, {"SSE4_2", 3}};
    for (const auto& c : kCaps)
        if (std::strcmp(value, c.keyword) == 0) return c.cap;
    return -1;
}

EnableFlags enable_flags_for_cap(int cap, EnableFlags current)
{
    if (cap < 3 || cap > 7) return current;
    EnableFlags flags;
    flags.sse42 = kPathMc3 <= cap ? 1 : 0;
    flags.avx = kPathAvx <= cap ? 1 : 0;
    flags.avx2 = kPathAvx2 <= cap ? 1 : 0;
    flags.avx512_qix = kPathAvx512Qix <= cap ? 1 : 0;
    flags.avx512 = kPathAvx512 <= cap ? 1 : 0;
    return flags;
}

CodePath select_code_path(FeatureWord features, int reference_vendor, const EnableFlags& flags)
{
    const auto has = [features](FeatureWord mask) { return (features & mask) == mask; };
    if (reference_vendor == 0) return kPathDef;
    if (has(kFeatureAvx)) {
        if (has(kFeatureAvx2Group)) {
            if (flags.avx512 == 1 && has(kFeatureAvx512Group)) return kPathAvx512;
            if (has(kFeatureQixAvx512Group) && flags.avx512_qix == 1) return kPathAvx512Qix;
            if (flags.avx2 == 1) return kPathAvx2;
        }
        if (flags.avx == 1) return kPathAvx;
    }
    if (flags.sse42 == 1 && has(kFeatureSse42)) return kPathMc3;
    if (has(kFeatureSsse3)) return kPathMc;
    if (has(kFeatureSse2)) return kPathDef;
    return -1;
}

bool cap_features_present(int cap, FeatureWord features)
{
    FeatureWord mask = 0;
    switch (cap) {
    case 3: mask = kFeatureSse42; break;
    case 4: mask = kFeatureAvx; break;
    case 5: mask = kFeatureAvx2Group; break;
    case 6: mask = kFeatureQixAvx512Group; break;
    case 7: mask = kFeatureAvx512Group; break;
    default: return false;
    }
    return (features & mask) == mask;
}

CodePath cbwr_mode_code_path(int branch)
{
    const int index = branch % 64 - 3;
    if (index < 0 || index >= static_cast<int>(sizeof kModePath / sizeof kModePath[0])) return -1;
    return kModePath[index];
}

bool read_integer_i(const char* text, int* value)
{
    int parsed = 0;
    if (text == nullptr || std::sscanf(text, "%i", &parsed) != 1) return false;
    *value = parsed;
    return true;
}

CodePath cpu_detect()
{
    const CodePath cached = __atomic_load_n(&g_code_path, __ATOMIC_ACQUIRE);
    if (cached >= 0) return cached;
    g_detection_lock.lock();
    const CodePath decided = __atomic_load_n(&g_code_path, __ATOMIC_RELAXED);
    if (decided >= 0) {
        g_detection_lock.unlock();
        return decided;
    }
    return decide_locked();
}

CodePath cpu_detect_hardware(int fresh)
{
    if (fresh == 0) return __atomic_load_n(&g_code_path, __ATOMIC_ACQUIRE);
    read_instruction_cap();
    const CodePath code = run_selection();
    return code < 0 ? below_minimum() : code;
}

int cpu_has_sse41() { return cpu_has_features(kFeatureSse41) ? 1 : 0; }

int cpu_sse41_allowed()
{
    const int branch = cbwr_get(1);
    if (branch == kBranchNone || branch == kBranchAuto) return cpu_has_sse41();
    return branch >= kBranchSse41 ? 1 : 0;
}

int cpu_tuned_paths_allowed()
{
    const int branch = cbwr_get(1);
    if (branch == kBranchNone || branch == kBranchAuto) {
        int vendor = __atomic_load_n(&g_tuned_vendor, __ATOMIC_RELAXED);
        if (vendor < 0) {
            vendor = cpu_is_reference_vendor();
            __atomic_store_n(&g_tuned_vendor, vendor, __ATOMIC_RELAXED);
        }
        return vendor;
    }
    return branch != kBranchCompatible ? 1 : 0;
}

int cpu_instruction_cap()
{
    read_instruction_cap();
    return g_cap;
}

EnableFlags cpu_enable_flags()
{
    read_instruction_cap();
    return g_flags;
}

SpinLock& detection_lock() { return g_detection_lock; }

}  // namespace orv
