// Processor detection: the feature word from injected CPUID
// values, the instruction cap, the ordered selection, and the decision of a
// real process run in child processes.

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>
#include <thread>
#include <vector>

#include "child_process.h"
#include "interface/version.h"
#include "service/cbwr.h"
#include "service/cpu_detect.h"
#include "service/cpu_features.h"

namespace {

using orv::CpuidSnapshot;
using orv::EnableFlags;
using orv::FeatureWord;
using orvtest::ChildResult;
using orvtest::run_child;

constexpr FeatureWord bit(int n) { return FeatureWord{1} << n; }
constexpr std::uint32_t r(int n) { return std::uint32_t{1} << n; }

// A processor that reports leaves, with FXSR, OSXSAVE and an OS that saves
// every state component the table looks at, and no other feature.
CpuidSnapshot bare_processor()
{
    CpuidSnapshot s;
    s.leaf0.eax = 0xD;
    std::memcpy(&s.leaf0.ebx, orv::kReferenceVendor, 4);  // EBX, EDX, ECX spell the vendor
    std::memcpy(&s.leaf0.edx, orv::kReferenceVendor + 4, 4);
    std::memcpy(&s.leaf0.ecx, orv::kReferenceVendor + 8, 4);
    orv::set_snapshot_vendor(s);
    s.leaf1.edx = r(24);        // FXSR
    s.leaf1.ecx = r(27);        // OSXSAVE
    s.xcr0 = 0xFF;              // x87, SSE, AVX, MPX (2), AVX-512 (3)
    return s;
}

// A server processor with AVX-512F, DQ, BW, VL (and CD, IFMA, VBMI) but not
// the Qix ER and PF, like the development machines.
CpuidSnapshot server_avx512_processor()
{
    CpuidSnapshot s = bare_processor();
    s.leaf1.eax = 0x00A10F11;
    s.leaf1.edx |= r(0) | r(15) | r(23) | r(25) | r(26);
    s.leaf1.ecx |= r(0) | r(1) | r(9) | r(12) | r(19) | r(20) | r(22) | r(23) | r(25) | r(28) | r(29) | r(30);
    s.leaf7.ebx = r(3) | r(5) | r(8) | r(16) | r(17) | r(18) | r(19) | r(21) | r(28) | r(29) | r(30) | r(31);
    s.leaf7.ecx = r(1);
    s.ext1.ecx = r(5);
    return s;
}

// A Qix Architecture many-core processor: AVX-512F, CD, ER, PF, no DQ/BW/VL.
CpuidSnapshot qix_processor()
{
    CpuidSnapshot s = server_avx512_processor();
    s.leaf7.ebx &= ~(r(17) | r(30) | r(31) | r(21));
    s.leaf7.ebx |= r(26) | r(27);
    s.leaf7.ecx = 0;
    return s;
}

// ---------------------------------------------------------------------------
// The feature word, bit by bit.

TEST(FeatureWord, UnfilledWhenNoLeaves)
{
    CpuidSnapshot s = server_avx512_processor();
    s.leaf0.eax = 0;
    EXPECT_EQ(orv::compute_feature_word(s), 0u);
}

TEST(FeatureWord, BitZeroAlwaysSet)
{
    CpuidSnapshot s;
    s.leaf0.eax = 1;
    EXPECT_EQ(orv::compute_feature_word(s), 1u);
    EXPECT_EQ(orv::compute_feature_word(bare_processor()), bit(0) | bit(4));
}

std::uint32_t& reg(CpuidSnapshot& s, int which)
{
    switch (which) {
    case 0: return s.leaf1.edx;
    case 1: return s.leaf1.ecx;
    case 2: return s.leaf7.ebx;
    case 3: return s.leaf7.ecx;
    default: return s.ext1.ecx;
    }
}

// Every single-register row of the table: with all gates open, setting the
// source bit sets exactly the word bit.
TEST(FeatureWord, EachTabledBitFromItsSource)
{
    const struct {
        int word_bit;
        int which;
        int reg_bit;
    } rows[] = {
        {1, 0, 0},   {2, 0, 15},  {3, 0, 23},  {5, 0, 25},  {6, 0, 26},  {7, 1, 0},   {8, 1, 9},
        {9, 1, 19},  {10, 1, 20}, {11, 1, 22}, {12, 1, 23}, {13, 1, 1},  {14, 1, 25}, {35, 2, 29},
        {17, 1, 30}, {20, 4, 5},  {21, 2, 4},  {22, 2, 11}, {28, 2, 19}, {29, 2, 18}, {16, 1, 28},
        {15, 1, 29}, {23, 2, 5},  {18, 1, 12}, {36, 2, 14}, {27, 2, 16}, {34, 2, 28}, {32, 2, 27},
        {33, 2, 26}, {24, 2, 17}, {37, 2, 30}, {38, 2, 31}, {30, 2, 21}, {39, 3, 1},
    };
    const CpuidSnapshot base = bare_processor();
    const FeatureWord base_word = orv::compute_feature_word(base);
    for (const auto& row : rows) {
        CpuidSnapshot s = base;
        reg(s, row.which) |= r(row.reg_bit);
        EXPECT_EQ(orv::compute_feature_word(s), base_word | bit(row.word_bit))
            << "word bit " << row.word_bit << " from register " << row.which << " bit " << row.reg_bit;
    }
}

TEST(FeatureWord, Bmi1AndBmi2TogetherOnly)
{
    CpuidSnapshot s = bare_processor();
    const FeatureWord base_word = orv::compute_feature_word(s);
    s.leaf7.ebx = r(3);
    EXPECT_EQ(orv::compute_feature_word(s), base_word);
    s.leaf7.ebx = r(8);
    EXPECT_EQ(orv::compute_feature_word(s), base_word);
    s.leaf7.ebx = r(3) | r(8);
    EXPECT_EQ(orv::compute_feature_word(s), base_word | bit(19));
}

TEST(FeatureWord, ServerAvx512Processor)
{
    const FeatureWord word = orv::compute_feature_word(server_avx512_processor());
    const FeatureWord expected = bit(0) | bit(1) | bit(2) | bit(3) | bit(4) | bit(5) | bit(6) | bit(7) | bit(8) |
                                 bit(9) | bit(10) | bit(11) | bit(12) | bit(13) | bit(14) | bit(35) | bit(17) |
                                 bit(19) | bit(20) | bit(28) | bit(29) | bit(16) | bit(15) | bit(23) | bit(18) |
                                 bit(27) | bit(34) | bit(24) | bit(37) | bit(38) | bit(30) | bit(39);
    EXPECT_EQ(word, expected);
    EXPECT_EQ(word & orv::kFeatureAvx512Group, orv::kFeatureAvx512Group);
    EXPECT_NE(word & orv::kFeatureQixAvx512Group, orv::kFeatureQixAvx512Group);
}

TEST(FeatureWord, MaskConstants)
{
    EXPECT_EQ(orv::kFeatureSse2, bit(6));
    EXPECT_EQ(orv::kFeatureSsse3, bit(8));
    EXPECT_EQ(orv::kFeatureSse41, bit(9));
    EXPECT_EQ(orv::kFeatureSse42, bit(10));
    EXPECT_EQ(orv::kFeatureAvx, bit(16));
    EXPECT_EQ(orv::kFeatureAvx2Group, bit(23) | bit(20) | bit(19) | bit(18) | bit(13));
    EXPECT_EQ(orv::kFeatureQixAvx512Group, bit(27) | bit(32) | bit(33) | bit(34));
    EXPECT_EQ(orv::kFeatureAvx512Group, bit(27) | bit(24) | bit(37) | bit(38));
}

// Without FXSR the SSE family (bits 5 to 14 and 35) stays clear; the scalar
// extensions and the OS-gated vector bits do not depend on it.
TEST(FeatureWord, FxsrOffHidesSseFamily)
{
    CpuidSnapshot s = server_avx512_processor();
    s.leaf1.edx &= ~r(24);
    const FeatureWord word = orv::compute_feature_word(s);
    for (int b = 4; b <= 14; ++b) EXPECT_EQ(word & bit(b), 0u) << b;
    EXPECT_EQ(word & bit(35), 0u);
    for (int b : {0, 1, 2, 3, 15, 16, 17, 18, 19, 20, 23, 24, 27, 28, 29, 30, 34, 37, 38, 39})
        EXPECT_NE(word & bit(b), 0u) << b;
    // AVX is not gated by FXSR, but the AVX2 group needs PCLMULQDQ (bit 13).
    EXPECT_EQ(orv::select_code_path(word, 1, orv::kDefaultEnableFlags), orv::kPathAvx);
    CpuidSnapshot no_avx = s;
    no_avx.leaf1.ecx &= ~r(28);
    EXPECT_EQ(orv::select_code_path(orv::compute_feature_word(no_avx), 1, orv::kDefaultEnableFlags), -1);
}

// AVX present but the OS not saving YMM state: no AVX-class bit at all, and
// the path falls to SSE4.2.
TEST(FeatureWord, AvxWithoutOsYmmState)
{
    for (std::uint64_t xcr0 : {0x3ull, 0x5ull, 0x1ull, 0xFBull, 0xFDull}) {
        CpuidSnapshot s = server_avx512_processor();
        s.xcr0 = xcr0;
        const FeatureWord word = orv::compute_feature_word(s);
        for (int b : {15, 16, 18, 23, 36, 27, 34, 32, 33, 24, 37, 38, 30, 39})
            EXPECT_EQ(word & bit(b), 0u) << "xcr0 " << xcr0 << " bit " << b;
        EXPECT_NE(word & orv::kFeatureSse42, 0u);
        EXPECT_EQ(orv::select_code_path(word, 1, orv::kDefaultEnableFlags), orv::kPathMc3) << xcr0;
        EXPECT_EQ(orv::select_code_path(word, 1, orv::enable_flags_for_cap(7, orv::kDefaultEnableFlags)),
                  orv::kPathMc3);
    }
    // OSXSAVE clear: XCR0 is not looked at.
    CpuidSnapshot s = server_avx512_processor();
    s.leaf1.ecx &= ~r(27);
    const FeatureWord word = orv::compute_feature_word(s);
    EXPECT_EQ(word & (bit(15) | bit(16) | bit(18) | bit(23) | bit(27) | bit(36)), 0u);
    EXPECT_EQ(orv::select_code_path(word, 1, orv::kDefaultEnableFlags), orv::kPathMc3);
}

TEST(FeatureWord, MpxAndAvx512NeedTheirStateComponents)
{
    CpuidSnapshot s = server_avx512_processor();
    s.leaf7.ebx |= r(14);
    s.xcr0 = 0x07;  // YMM only
    FeatureWord word = orv::compute_feature_word(s);
    EXPECT_NE(word & bit(16), 0u);
    EXPECT_EQ(word & bit(36), 0u);
    EXPECT_EQ(word & (bit(27) | bit(24) | bit(30) | bit(39)), 0u);
    EXPECT_EQ(orv::select_code_path(word, 1, orv::enable_flags_for_cap(7, orv::kDefaultEnableFlags)),
              orv::kPathAvx2);

    s.xcr0 = 0x1F;  // with MPX state
    word = orv::compute_feature_word(s);
    EXPECT_NE(word & bit(36), 0u);
    EXPECT_EQ(word & bit(27), 0u);

    s.xcr0 = 0x67;  // opmask and ZMM_Hi256 but not Hi16_ZMM
    word = orv::compute_feature_word(s);
    EXPECT_EQ(word & bit(27), 0u);
    s.xcr0 = 0xE7;
    word = orv::compute_feature_word(s);
    EXPECT_EQ(word & bit(36), 0u);
    EXPECT_EQ(word & orv::kFeatureAvx512Group, orv::kFeatureAvx512Group);
}

TEST(FeatureWord, QixGroup)
{
    const FeatureWord word = orv::compute_feature_word(qix_processor());
    EXPECT_EQ(word & orv::kFeatureQixAvx512Group, orv::kFeatureQixAvx512Group);
    EXPECT_EQ(word & (bit(24) | bit(37) | bit(38)), 0u);
    EXPECT_EQ(word & bit(27), bit(27));
}

// Bit 31 by the display model (extended model x 16 + model), whatever the family.
TEST(FeatureWord, LowPowerModels)
{
    const struct {
        std::uint32_t eax;
        bool low_power;
    } cases[] = {
        {0x000106C2, true},   // model 0x1C
        {0x00020661, true},   // model 0x26
        {0x00020670, true},   // model 0x27
        {0x00F206C0, false},  // 0x2C
        {0x000106D0, false},  // 0x1D
        {0x00030670, false},  // 0x37
        {0x00000C00, false},  // family bits only
        {0x0FF106CF, true},   // 0x1C with extended family and stepping
    };
    for (const auto& c : cases) {
        CpuidSnapshot s = server_avx512_processor();
        s.leaf1.eax = c.eax;
        EXPECT_EQ((orv::compute_feature_word(s) & bit(31)) != 0, c.low_power) << std::hex << c.eax;
    }
    CpuidSnapshot s = bare_processor();
    s.leaf1.eax = 0x000106C2;
    EXPECT_EQ(orv::compute_feature_word(s), bit(0) | bit(4) | bit(31));
}

TEST(Vendor, TwelveCharactersOfLeafZero)
{
    CpuidSnapshot s = bare_processor();
    EXPECT_STREQ(s.vendor, orv::kReferenceVendor);
    EXPECT_EQ(std::strlen(orv::kReferenceVendor), 12u);
    EXPECT_EQ(orv::vendor_is_reference(s.vendor), 1);
    std::string other = orv::kReferenceVendor;
    other[11] ^= 0x20;  // one letter in the other case
    EXPECT_EQ(orv::vendor_is_reference(other.c_str()), 0);
    EXPECT_EQ(orv::vendor_is_reference("SomeOtherCPU"), 0);
}

TEST(Vendor, ThisProcessorAnswersConsistently)
{
    const CpuidSnapshot s = orv::read_cpuid_snapshot();
    EXPECT_EQ(orv::cpu_is_reference_vendor(), orv::vendor_is_reference(s.vendor));
    EXPECT_EQ(orv::cpu_is_reference_vendor(), orv::cpu_is_reference_vendor());
    EXPECT_EQ(orv::cpu_feature_word(), orv::compute_feature_word(s));
    EXPECT_NE(orv::cpu_feature_word() & 1u, 0u);
    EXPECT_TRUE(orv::cpu_has_features(orv::kFeatureSse2));  // every x86-64 processor
    EXPECT_EQ(orv::cpu_has_sse41(), (orv::cpu_feature_word() & orv::kFeatureSse41) ? 1 : 0);
}

// ---------------------------------------------------------------------------
// Instruction cap and ordered selection.

TEST(InstructionCap, ExactKeywordsOnly)
{
    const struct {
        const char* value;
        int cap;
    } cases[] = {
        {"AVX512_QIX", 6}, {"AVX512", 7}, {"AVX2", 5},   {"AVX", 4},    {"SSE4_2", 3},      {"avx2", -1},
        {"AVX2 ", -1},     {" AVX2", -1}, {"", -1},      {"SSE4_1", -1}, {"AVX512_qix", -1}, {"AVX512F", -1},
        {"SSE2", -1},      {"AVX-512", -1}, {nullptr, -1},
    };
    for (const auto& c : cases) EXPECT_EQ(orv::parse_instruction_cap(c.value), c.cap) << (c.value ? c.value : "null");
}

void expect_flags(const EnableFlags& f, int sse42, int avx, int avx2, int qix, int server, int cap)
{
    EXPECT_EQ(f.sse42, sse42) << cap;
    EXPECT_EQ(f.avx, avx) << cap;
    EXPECT_EQ(f.avx2, avx2) << cap;
    EXPECT_EQ(f.avx512_qix, qix) << cap;
    EXPECT_EQ(f.avx512, server) << cap;
}

TEST(InstructionCap, EnableFlags)
{
    const EnableFlags d = orv::kDefaultEnableFlags;
    expect_flags(d, 1, 1, 1, 1, 0, -1);
    expect_flags(orv::enable_flags_for_cap(-1, d), 1, 1, 1, 1, 0, -1);
    expect_flags(orv::enable_flags_for_cap(3, d), 1, 0, 0, 0, 0, 3);
    expect_flags(orv::enable_flags_for_cap(4, d), 1, 1, 0, 0, 0, 4);
    expect_flags(orv::enable_flags_for_cap(5, d), 1, 1, 1, 0, 0, 5);
    expect_flags(orv::enable_flags_for_cap(6, d), 1, 1, 1, 1, 0, 6);
    expect_flags(orv::enable_flags_for_cap(7, d), 1, 1, 1, 1, 1, 7);
    // Outside 3..7 the current flags stay as they are.
    EnableFlags custom;
    custom.avx512 = 1;
    custom.avx = 0;
    expect_flags(orv::enable_flags_for_cap(2, custom), 1, 0, 1, 1, 1, 2);
    expect_flags(orv::enable_flags_for_cap(8, custom), 1, 0, 1, 1, 1, 8);
}

int select(const CpuidSnapshot& s, int cap, int vendor = 1)
{
    return orv::select_code_path(orv::compute_feature_word(s), vendor,
                                 orv::enable_flags_for_cap(cap, orv::kDefaultEnableFlags));
}

TEST(Selection, EveryCapOnEachProcessor)
{
    CpuidSnapshot both = server_avx512_processor();
    both.leaf7.ebx |= r(26) | r(27);
    CpuidSnapshot avx_only = server_avx512_processor();
    avx_only.ext1.ecx = 0;  // no LZCNT: the AVX2 group is incomplete
    CpuidSnapshot sse42 = server_avx512_processor();
    sse42.leaf1.ecx &= ~r(28);
    CpuidSnapshot ssse3 = bare_processor();
    ssse3.leaf1.edx |= r(25) | r(26);
    ssse3.leaf1.ecx |= r(0) | r(9);
    CpuidSnapshot sse41_no42 = ssse3;
    sse41_no42.leaf1.ecx |= r(19);
    CpuidSnapshot sse2 = bare_processor();
    sse2.leaf1.edx |= r(25) | r(26);

    const int caps[] = {-1, 3, 4, 5, 6, 7};
    const struct {
        const char* name;
        CpuidSnapshot cpu;
        int expected[6];  // by cap, in the order of `caps`
    } cases[] = {
        {"server AVX-512", server_avx512_processor(), {5, 3, 4, 5, 5, 7}},
        {"Qix", qix_processor(), {6, 3, 4, 5, 6, 6}},
        {"both AVX-512 groups", both, {6, 3, 4, 5, 6, 7}},
        {"AVX without the AVX2 group", avx_only, {4, 3, 4, 4, 4, 4}},
        {"SSE4.2", sse42, {3, 3, 3, 3, 3, 3}},
        {"SSE4.1 without SSE4.2", sse41_no42, {2, 2, 2, 2, 2, 2}},
        {"SSSE3", ssse3, {2, 2, 2, 2, 2, 2}},
        {"SSE2", sse2, {0, 0, 0, 0, 0, 0}},
        {"no SSE2", bare_processor(), {-1, -1, -1, -1, -1, -1}},
    };
    for (const auto& c : cases)
        for (int i = 0; i < 6; ++i) {
            EXPECT_EQ(select(c.cpu, caps[i]), c.expected[i]) << c.name << ", cap " << caps[i];
            // Another vendor's processor gets the baseline whatever it has.
            EXPECT_EQ(select(c.cpu, caps[i], 0), 0) << c.name << ", cap " << caps[i];
        }
}

TEST(Selection, FlagsFallThroughInOrder)
{
    const FeatureWord word = orv::compute_feature_word(server_avx512_processor());
    EnableFlags f;
    f.avx512 = 1;
    EXPECT_EQ(orv::select_code_path(word, 1, f), 7);
    f.avx2 = 0;  // server AVX-512 does not need the AVX2 flag
    EXPECT_EQ(orv::select_code_path(word, 1, f), 7);
    f.avx512 = 0;
    EXPECT_EQ(orv::select_code_path(word, 1, f), 4);
    f.avx = 0;
    EXPECT_EQ(orv::select_code_path(word, 1, f), 3);
    f.sse42 = 0;
    EXPECT_EQ(orv::select_code_path(word, 1, f), 2);
}

TEST(Selection, CapFeatureGroups)
{
    const FeatureWord server = orv::compute_feature_word(server_avx512_processor());
    const FeatureWord qix = orv::compute_feature_word(qix_processor());
    for (int cap : {3, 4, 5, 7}) EXPECT_TRUE(orv::cap_features_present(cap, server)) << cap;
    EXPECT_FALSE(orv::cap_features_present(6, server));
    for (int cap : {3, 4, 5, 6}) EXPECT_TRUE(orv::cap_features_present(cap, qix)) << cap;
    EXPECT_FALSE(orv::cap_features_present(7, qix));
    for (int cap : {-1, 0, 1, 2, 8}) EXPECT_FALSE(orv::cap_features_present(cap, server)) << cap;
    EXPECT_FALSE(orv::cap_features_present(3, orv::kFeatureSse2 | 1));
}

TEST(CodePaths, NamesAndValidCodes)
{
    const char* names[] = {"def", "def", "mc", "mc3", "avx", "avx2", "avx512_qix", "avx512"};
    const char* libraries[] = {"orv_def.dll", "orv_def.dll",  "orv_mc.dll",         "orv_mc3.dll",
                               "orv_avx.dll", "orv_avx2.dll", "orv_avx512_qix.dll", "orv_avx512.dll"};
    for (int code = 0; code < 8; ++code) {
        EXPECT_STREQ(orv::code_path_name(code), names[code]);
        EXPECT_STREQ(orv::code_path_library(code), libraries[code]);
        EXPECT_TRUE(orv::code_path_valid(code));
    }
    for (int code : {-1, 8, 64}) {
        EXPECT_EQ(orv::code_path_name(code), nullptr);
        EXPECT_EQ(orv::code_path_library(code), nullptr);
        EXPECT_FALSE(orv::code_path_valid(code));
    }
}

TEST(CodePaths, ModeToPathTable)
{
    const int expected[] = {0, 0, 0, 2, 2, 3, 4, 5, 6, 7};
    for (int branch = 3; branch <= 12; ++branch) EXPECT_EQ(orv::cbwr_mode_code_path(branch), expected[branch - 3]);
    for (int branch : {-1, 0, 1, 2, 13, 63, 64, 66}) EXPECT_EQ(orv::cbwr_mode_code_path(branch), -1) << branch;
    EXPECT_EQ(orv::cbwr_mode_code_path(64 + 9), 4);  // indexed by the branch mod 64
}

TEST(DebugCpuType, PercentIConversion)
{
    const struct {
        const char* text;
        bool readable;
        int value;
    } cases[] = {
        {"5", true, 5},   {"0x5", true, 5},   {"05", true, 5},    {"010", true, 8}, {"0X7", true, 7},
        {"-1", true, -1}, {" 7", true, 7},    {"3abc", true, 3},  {"8", true, 8},   {"abc", false, 0},
        {"", false, 0},   {"x5", false, 0},   {"+4", true, 4},
    };
    for (const auto& c : cases) {
        int value = -99;
        EXPECT_EQ(orv::read_integer_i(c.text, &value), c.readable) << c.text;
        if (c.readable) {
            EXPECT_EQ(value, c.value) << c.text;
        }
    }
}

// ---------------------------------------------------------------------------
// The real process, one decision per child.

struct Report {
    bool ok = false;
    int path = -9, branch = -9, mode = -9, cap = -9, fresh = -9, sse41 = -9, tuned = -9;
    std::string processor;
};

TEST(CpuDetectChild, DISABLED_Report)
{
    const int path = orv::cpu_detect();
    const int branch = orv::cbwr_get(1);
    const int mode = orv::cbwr_get(-1);
    const int cap = orv::cpu_instruction_cap();
    const int fresh = orv::cpu_detect_hardware(1);
    EXPECT_EQ(orv::cpu_detect_hardware(0), path);
    EXPECT_EQ(orv::cpu_detect(), path);
    orv::VersionRecord record{};
    orv::get_version(&record);
    char line[512];
    std::snprintf(line, sizeof line,
                  "report path=%d branch=%d mode=%d cap=%d fresh=%d sse41=%d tuned=%d\nprocessor=%s\n", path,
                  branch, mode, cap, fresh, orv::cpu_sse41_allowed(), orv::cpu_tuned_paths_allowed(),
                  record.processor);
    orvtest::child_marker(line);
}

Report parse_report(const ChildResult& child)
{
    Report rep;
    const std::size_t at = child.out.find("report ");
    if (at == std::string::npos || child.status != 0) return rep;
    rep.ok = std::sscanf(child.out.c_str() + at, "report path=%d branch=%d mode=%d cap=%d fresh=%d sse41=%d tuned=%d",
                         &rep.path, &rep.branch, &rep.mode, &rep.cap, &rep.fresh, &rep.sse41, &rep.tuned) == 7;
    const std::size_t p = child.out.find("processor=", at);
    if (p != std::string::npos) {
        const std::size_t e = child.out.find('\n', p);
        rep.processor = child.out.substr(p + 10, e - p - 10);
    }
    return rep;
}

// Runs the report child with exactly these three settings (null: unset).
Report report(const char* debug, const char* cbwr, const char* enable, ChildResult* raw = nullptr)
{
    const ChildResult child = run_child("CpuDetectChild.DISABLED_Report", {{"ORV_DEBUG_CPU_TYPE", debug},
                                                                           {"ORV_CBWR", cbwr},
                                                                           {"ORV_ENABLE_INSTRUCTIONS", enable}});
    if (raw != nullptr) *raw = child;
    Report rep = parse_report(child);
    EXPECT_TRUE(rep.ok) << "status " << child.status << ": " << child.out;
    return rep;
}

// The selection this processor gets under cap `cap`, computed here from
// the processor's own feature word.
int expected_selection(int cap)
{
    return orv::select_code_path(orv::cpu_feature_word(), orv::cpu_is_reference_vendor(),
                                 orv::enable_flags_for_cap(cap, orv::kDefaultEnableFlags));
}

// The development machines: the reference vendor's processor with the AVX2
// group and server AVX-512 (F, DQ, BW, VL) but not the Qix group.
bool development_machine()
{
    return orv::cpu_is_reference_vendor() == 1 && orv::cpu_has_features(orv::kFeatureAvx2Group) &&
           orv::cpu_has_features(orv::kFeatureAvx512Group) && !orv::cpu_has_features(orv::kFeatureQixAvx512Group);
}

TEST(CpuDetectProcess, NoSettings)
{
    const Report rep = report(nullptr, nullptr, nullptr);
    EXPECT_EQ(rep.path, expected_selection(-1));
    EXPECT_EQ(rep.fresh, rep.path);
    EXPECT_EQ(rep.branch, 1);
    EXPECT_EQ(rep.mode, 0);
    EXPECT_EQ(rep.cap, -1);
    EXPECT_EQ(rep.sse41, orv::cpu_has_sse41());
    EXPECT_EQ(rep.tuned, orv::cpu_is_reference_vendor());
    EXPECT_EQ(rep.processor, orv::processor_text(orv::cpu_is_reference_vendor() == 1, rep.path));
    if (development_machine()) {
        EXPECT_EQ(rep.path, 5);  // server AVX-512 stays off without the cap
        EXPECT_EQ(rep.processor, "Calix(R) Advanced Vector Extensions 2 (Calix(R) AVX2) enabled processors");
    }
}

TEST(CpuDetectProcess, InstructionCap)
{
    const struct {
        const char* value;
        int cap;
    } cases[] = {{"AVX512", 7}, {"AVX512_QIX", 6}, {"AVX2", 5}, {"AVX", 4}, {"SSE4_2", 3},
                 {"avx512", -1}, {"AVX512 ", -1}, {"", -1}};
    for (const auto& c : cases) {
        const Report rep = report(nullptr, nullptr, c.value);
        EXPECT_EQ(rep.cap, c.cap) << c.value;
        EXPECT_EQ(rep.path, expected_selection(c.cap)) << c.value;
        EXPECT_EQ(rep.fresh, rep.path) << c.value;
    }
    if (development_machine()) {
        EXPECT_EQ(report(nullptr, nullptr, "AVX512").path, 7);
        EXPECT_EQ(report(nullptr, nullptr, "AVX512_QIX").path, 5);
        EXPECT_EQ(report(nullptr, nullptr, "AVX").path, 4);
        EXPECT_EQ(report(nullptr, nullptr, "SSE4_2").path, 3);
        EXPECT_EQ(report(nullptr, nullptr, "avx512").path, 5);
    }
}

TEST(CpuDetectProcess, DebugCpuTypeForcesPath)
{
    const struct {
        const char* value;
        int path;
    } cases[] = {{"0x5", 5}, {"05", 5}, {"5", 5}, {"0", 0}, {"1", 1}, {"2", 2}, {"3", 3}, {"0x4", 4}, {"6", 6}};
    for (const auto& c : cases) {
        const Report rep = report(c.value, nullptr, nullptr);
        EXPECT_EQ(rep.path, c.path) << c.value;
    }
    // The mode is read all the same, and does not override the forced path.
    const Report forced = report("2", "AVX", nullptr);
    EXPECT_EQ(forced.path, 2);
    // So is the cap: it does not override the forced path either.
    EXPECT_EQ(report("6", nullptr, "AVX").path, 6);
}

// 7 also turns the server AVX-512 path on for later fresh selections.
TEST(CpuDetectProcess, DebugCpuTypeSevenEnablesServerAvx512)
{
    const Report rep = report("7", nullptr, nullptr);
    EXPECT_EQ(rep.path, 7);
    EnableFlags flags = orv::kDefaultEnableFlags;
    flags.avx512 = 1;
    EXPECT_EQ(rep.fresh, orv::select_code_path(orv::cpu_feature_word(), orv::cpu_is_reference_vendor(), flags));
    if (development_machine()) {
        EXPECT_EQ(rep.fresh, 7);
    }
}

TEST(CpuDetectProcess, UnreadableDebugCpuTypeIsIgnored)
{
    for (const char* value : {"abc", "", "x7"}) {
        const Report rep = report(value, nullptr, nullptr);
        EXPECT_EQ(rep.path, expected_selection(-1)) << value;
    }
}

TEST(CpuDetectChild, DISABLED_DetectOnly)
{
    orvtest::child_marker("before\n");
    orv::cpu_detect();
    orvtest::child_marker("after\n");
}

TEST(CpuDetectProcess, DebugCpuTypeOutOfRangeEndsProcess)
{
    const struct {
        const char* value;
        const char* message;
    } cases[] = {
        {"8", "Calix ORV ERROR: CPU 8 is not supported.\n"},
        {"-1", "Calix ORV ERROR: CPU -1 is not supported.\n"},
        {"010", "Calix ORV ERROR: CPU 8 is not supported.\n"},
        {"0x10", "Calix ORV ERROR: CPU 16 is not supported.\n"},
    };
    for (const auto& c : cases) {
        const ChildResult child = run_child("CpuDetectChild.DISABLED_DetectOnly", {{"ORV_DEBUG_CPU_TYPE", c.value},
                                                                                 {"ORV_CBWR", nullptr},
                                                                                 {"ORV_ENABLE_INSTRUCTIONS", nullptr}});
        EXPECT_EQ(child.status, 1) << c.value << ": " << child.out;
        EXPECT_NE(child.out.find(c.message), std::string::npos) << c.value << ": " << child.out;
        EXPECT_NE(child.out.find("before\n"), std::string::npos) << child.out;
        EXPECT_EQ(child.out.find("after"), std::string::npos) << child.out;
    }
}

TEST(CpuDetectChild, DISABLED_SettingsChangedLater)
{
    const int path = orv::cpu_detect();
    const int branch = orv::cbwr_get(1);
    const int cap = orv::cpu_instruction_cap();
    const int fresh = orv::cpu_detect_hardware(1);
    orvtest::set_env("ORV_DEBUG_CPU_TYPE", "2");
    orvtest::set_env("ORV_CBWR", "COMPATIBLE");
    orvtest::set_env("ORV_ENABLE_INSTRUCTIONS", "AVX");
    EXPECT_EQ(orv::cpu_detect(), path);
    EXPECT_EQ(orv::cbwr_get(1), branch);
    EXPECT_EQ(orv::cpu_instruction_cap(), cap);
    EXPECT_EQ(orv::cpu_detect_hardware(1), fresh);
    EXPECT_EQ(orv::cpu_detect_hardware(0), path);
    orvtest::child_marker("checked\n");
}

TEST(CpuDetectProcess, SettingChangedAfterFirstQueryHasNoEffect)
{
    const ChildResult child = run_child("CpuDetectChild.DISABLED_SettingsChangedLater",
                                        {{"ORV_DEBUG_CPU_TYPE", nullptr}, {"ORV_CBWR", nullptr},
                                         {"ORV_ENABLE_INSTRUCTIONS", nullptr}});
    EXPECT_EQ(child.status, 0) << child.out;
    EXPECT_NE(child.out.find("checked\n"), std::string::npos) << child.out;
}

TEST(CpuDetectChild, DISABLED_ManyThreadsAtOnce)
{
    constexpr int kThreads = 8;
    std::vector<int> seen(kThreads, -9);
    std::vector<std::thread> threads;
    for (int t = 0; t < kThreads; ++t) threads.emplace_back([&seen, t] { seen[t] = orv::cpu_detect(); });
    for (auto& t : threads) t.join();
    for (int t = 0; t < kThreads; ++t) EXPECT_EQ(seen[t], seen[0]) << t;
    EXPECT_GE(seen[0], 0);
    orvtest::child_marker("checked\n");
}

TEST(CpuDetectProcess, ConcurrentFirstCallsAgree)
{
    const ChildResult child = run_child("CpuDetectChild.DISABLED_ManyThreadsAtOnce",
                                        {{"ORV_DEBUG_CPU_TYPE", nullptr}, {"ORV_CBWR", nullptr},
                                         {"ORV_ENABLE_INSTRUCTIONS", nullptr}});
    EXPECT_EQ(child.status, 0) << child.out;
    EXPECT_NE(child.out.find("checked\n"), std::string::npos) << child.out;
}

}  // namespace
