// orvinfo: prints what the library decides for this process, one
// "name: value" line each, so that a user can see why it behaves as it does:
// the processor as the library sees it, the code path and the reproducibility
// branch it chose, the thread policy and the memory manager's switch. Every
// setting is read from the same environment variables the library reads.

#include <cstdio>
#include <string>

#include "orv.h"
#include "service/cbwr.h"
#include "service/cpu_detect.h"
#include "service/cpu_features.h"
#include "service/memory.h"
#include "service/thread_policy.h"

namespace {

// Names of the feature-word bits; bit 0 only marks the word as filled, and
// bits 25 and 26 are not used.
struct FeatureBit {
    int bit;
    const char* name;
};
constexpr FeatureBit kFeatureBits[] = {
    {1, "FPU"},        {2, "CMOV"},       {3, "MMX"},        {4, "FXSR"},         {5, "SSE"},
    {6, "SSE2"},       {7, "SSE3"},       {8, "SSSE3"},      {9, "SSE4.1"},       {10, "SSE4.2"},
    {11, "MOVBE"},     {12, "POPCNT"},    {13, "PCLMULQDQ"}, {14, "AES"},         {15, "F16C"},
    {16, "AVX"},       {17, "RDRAND"},    {18, "FMA"},       {19, "BMI1+BMI2"},   {20, "LZCNT"},
    {21, "HLE"},       {22, "RTM"},       {23, "AVX2"},      {24, "AVX512DQ"},    {27, "AVX512F"},
    {28, "ADX"},       {29, "RDSEED"},    {30, "AVX512IFMA"},{31, "LOW-POWER-CORE"}, {32, "AVX512ER"},
    {33, "AVX512PF"},  {34, "AVX512CD"},  {35, "SHA"},       {36, "MPX"},         {37, "AVX512BW"},
    {38, "AVX512VL"},  {39, "AVX512VBMI"},
};

// The ORV_ENABLE_INSTRUCTIONS keyword of each cap code.
const char* cap_keyword(int cap)
{
    switch (cap) {
    case 3: return "SSE4_2";
    case 4: return "AVX";
    case 5: return "AVX2";
    case 6: return "AVX512_QIX";
    case 7: return "AVX512";
    default: return nullptr;
    }
}

constexpr int kLabelWidth = 24;

void line(const char* name, const std::string& value)
{
    std::printf("%-*s%s\n", kLabelWidth, (std::string(name) + ":").c_str(), value.c_str());
}

std::string number(long long value) { return std::to_string(value); }

std::string code_and_name(int code, const char* name)
{
    return number(code) + " (" + (name != nullptr ? name : "?") + ")";
}

std::string version_string()
{
    char buf[256];
    orv_get_version_string(buf, sizeof buf - 1);  // blank-padded, not terminated
    int length = sizeof buf - 1;
    while (length > 0 && buf[length - 1] == ' ') --length;
    return std::string(buf, static_cast<std::size_t>(length));
}

void append_word(std::string& words, const char* word)
{
    if (!words.empty()) words += ' ';
    words += word;
}

std::string feature_names(orv::FeatureWord word)
{
    std::string names;
    for (const FeatureBit& f : kFeatureBits)
        if ((word >> f.bit) & 1) append_word(names, f.name);
    return names.empty() ? "none" : names;
}

// The code paths above SSSE3 that the processor may be given; the server
// AVX-512 path stays off unless ORV_ENABLE_INSTRUCTIONS allows it.
std::string enabled_paths(const orv::EnableFlags& flags)
{
    const struct {
        int on;
        int path;
    } paths[] = {{flags.sse42, orv::kPathMc3},          {flags.avx, orv::kPathAvx},
                 {flags.avx2, orv::kPathAvx2},          {flags.avx512_qix, orv::kPathAvx512Qix},
                 {flags.avx512, orv::kPathAvx512}};
    std::string names;
    for (const auto& p : paths)
        if (p.on) append_word(names, orv::code_path_name(p.path));
    return names.empty() ? "none" : names;
}

std::string on_off(bool on) { return on ? "on" : "off"; }
std::string yes_no(bool yes) { return yes ? "yes" : "no"; }

}  // namespace

int main()
{
    // Decided first: a forced code path the library cannot use ends the
    // process here, with the library's own message and status 1.
    const orv::CodePath path = orv::cpu_detect();

    line("version", version_string());

    const orv::CpuidSnapshot cpuid = orv::read_cpuid_snapshot();
    line("cpu vendor", cpuid.vendor);
    line("tuned for", orv::kReferenceVendor);
    line("reference vendor", yes_no(orv::cpu_is_reference_vendor() == 1));
    const orv::FeatureWord features = orv::cpu_feature_word();
    char hex[32];
    std::snprintf(hex, sizeof hex, "0x%016llx", static_cast<unsigned long long>(features));
    line("feature word", hex);
    line("features", feature_names(features));

    line("code path", code_and_name(path, orv::code_path_name(path)));
    const int cap = orv::cpu_instruction_cap();
    line("instruction cap", cap_keyword(cap) != nullptr ? code_and_name(cap, cap_keyword(cap)) : "none");
    line("enabled paths", enabled_paths(orv::cpu_enable_flags()));
    char branch_name[32];
    const int branch = orv::cbwr_get(1);
    line("reproducibility branch", code_and_name(branch, orv::cbwr_branch_name(branch, branch_name, sizeof branch_name)));

    line("max threads", number(orv::get_max_threads()));
    line("blas threads", number(orv::get_max_threads_for_domain(orv::kDomainBlas)));
    line("dynamic", on_off(orv::get_dynamic() == 1));
    line("logical cpus", number(orv::get_logical_cpus()));
    line("physical cores", number(orv::get_physical_cores()));
    line("numa nodes", number(orv::get_numa_nodes()));
    line("cores per node", number(orv::get_cores_per_node()));
    line("hyperthreading", yes_no(orv::get_hyperthreading() == 1));
    const int ranks = orv::get_ranks_per_node();
    line("ranks per node", ranks > 0 ? number(ranks) : "unknown");

    line("fast memory manager", on_off(orv::fast_mm_enabled()));
    return 0;
}
