// The reproducibility mode.

#include "service/cbwr.h"

#include <cstdio>
#include <cstring>

#include "service/cpu_detect.h"
#include "service/platform.h"

namespace orv {
namespace {

constexpr int kEnvBufferSize = 128;
constexpr const char* kBranchPrefix = "BRANCH=";

// The keywords in the order they are compared.
constexpr struct {
    const char* keyword;
    int branch;
} kKeywords[] = {
    {"AUTO", kBranchAuto},     {"COMPATIBLE", kBranchCompatible}, {"SSE2", kBranchSse2},
    {"SSE3", kBranchSse2},     {"SSSE3", kBranchSsse3},           {"SSE4_1", kBranchSse41},
    {"SSE4_2", kBranchSse42},  {"AVX", kBranchAvx},               {"AVX2", kBranchAvx2},
    {"AVX512_QIX", kBranchAvx512Qix}, {"AVX512", kBranchAvx512},
};

// Both written under the detection lock; read without it afterwards.
int g_mode = 0;        // the stored mode word, 0 for none
int g_mode_read = -1;  // -1 until the mode has been read, then 1

// Reads ORV_CBWR and stores the mode word. Runs under the detection lock.
void read_mode()
{
    char buf[kEnvBufferSize];
    const int length = platform::read_env("ORV_CBWR", buf, sizeof buf);
    int mode = length > 0 ? cbwr_parse_keyword(buf) : 0;
    if (mode > kBranchAuto) {
        const int vendor = cpu_is_reference_vendor();
        // The best branch (and with it the hardware selection) only when needed.
        const int best = vendor == 1 ? cbwr_best_branch() : kBranchAuto;
        mode = cbwr_resolve(mode, vendor, best);
    }
    __atomic_store_n(&g_mode, mode, __ATOMIC_RELAXED);
    __atomic_store_n(&g_mode_read, 1, __ATOMIC_RELEASE);
}

bool mode_pending()
{
    return __atomic_load_n(&g_mode_read, __ATOMIC_ACQUIRE) == -1 && __atomic_load_n(&g_mode, __ATOMIC_RELAXED) == 0;
}

int stored_branch()
{
    const int mode = __atomic_load_n(&g_mode, __ATOMIC_RELAXED);
    return mode != 0 ? mode : kBranchNone;
}

}  // namespace

int cbwr_get(int what)
{
    if (what == 1) {
        if (mode_pending()) {
            SpinGuard guard(detection_lock());
            if (mode_pending()) read_mode();
        }
        return stored_branch();
    }
    if (what == -1) return __atomic_load_n(&g_mode, __ATOMIC_RELAXED);
    return -2;
}

int cbwr_get_unlocked(int what)
{
    if (what == 1) {
        if (mode_pending()) read_mode();
        return stored_branch();
    }
    if (what == -1) return __atomic_load_n(&g_mode, __ATOMIC_RELAXED);
    return -2;
}

int cbwr_best_branch_for(int reference_vendor, int hardware_path, int has_sse41)
{
    if (reference_vendor == 0) return kBranchAuto;
    switch (hardware_path) {
    case 0:
    case 1: return kBranchSse2;
    case 2: return has_sse41 ? kBranchSse41 : kBranchSsse3;
    case 3: return kBranchSse42;
    case 4: return kBranchAvx;
    case 5: return kBranchAvx2;
    case 6: return kBranchAvx512Qix;
    case 7: return kBranchAvx512;
    default: return -4;
    }
}

int cbwr_best_branch()
{
    if (cpu_is_reference_vendor() == 0) return kBranchAuto;
    const CodePath path = cpu_detect_hardware(1);
    return cbwr_best_branch_for(1, path, path == kPathMc ? cpu_has_sse41() : 0);
}

bool cbwr_admits_threads()
{
    const int branch = cbwr_get(1);
    if (branch == kBranchNone) return true;
    if (branch >= kBranchCompatible && branch <= kBranchSse41) return false;
    if (branch != kBranchAuto) return true;
    const int best = cbwr_best_branch();
    return best < kBranchSse2 || best > kBranchSse41;
}

int cbwr_parse_keyword(const char* value)
{
    if (value == nullptr || value[0] == '\0') return 0;
    const std::size_t prefix = std::strlen(kBranchPrefix);
    const char* keyword = std::strncmp(value, kBranchPrefix, prefix) == 0 ? value + prefix : value;
    for (const auto& k : kKeywords)
        if (std::strcmp(keyword, k.keyword) == 0) return k.branch;
    return kBranchAuto;  // unknown keywords silently mean AUTO
}

int cbwr_resolve(int keyword, int reference_vendor, int best_branch)
{
    if (keyword <= kBranchAuto) return keyword;
    const bool reference = reference_vendor == 1;
    const int best = reference ? best_branch : kBranchAuto;
    // Above what the processor can run, or the Qix branch on server AVX-512.
    if (reference && keyword > best) return kBranchAuto;
    if (reference && best == kBranchAvx512 && keyword == kBranchAvx512Qix) return kBranchAuto;
    if (keyword == kBranchCompatible) return kBranchCompatible;
    return reference ? keyword : kBranchAuto;
}

int cbwr_decide(const char* value, int reference_vendor, int best_branch)
{
    return cbwr_resolve(cbwr_parse_keyword(value), reference_vendor, best_branch);
}

const char* cbwr_branch_name(int branch, char* buf, int size)
{
    const char* name = nullptr;
    switch (branch) {
    case kBranchNone: name = "OFF"; break;
    case kBranchAuto: name = "AUTO"; break;
    case kBranchCompatible: name = "COMPATIBLE"; break;
    case kBranchSse2: name = "SSE2"; break;
    case kBranchSsse3: name = "SSSE3"; break;
    case kBranchSse41: name = "SSE4_1"; break;
    case kBranchSse42: name = "SSE4_2"; break;
    case kBranchAvx: name = "AVX"; break;
    case kBranchAvx2: name = "AVX2"; break;
    case kBranchAvx512Qix: name = "AVX512_QIX"; break;
    case kBranchAvx512: name = "AVX512"; break;
    default: break;
    }
    if (buf == nullptr || size <= 0) return buf;
    const int limit = size < 32 ? size : 32;  // at most 31 characters
    if (name != nullptr)
        std::snprintf(buf, static_cast<std::size_t>(limit), "%s", name);
    else
        std::snprintf(buf, static_cast<std::size_t>(limit), "?%x", static_cast<unsigned>(branch));
    return buf;
}

}  // namespace orv
