// The processor's feature word and vendor test.
//
// The feature word is built from CPUID and XGETBV results. The building is a
// pure function over a snapshot of those results, so that tests can inject
// any processor; `cpu_features_init` takes the snapshot of this processor
// and publishes the word.
#pragma once

#include <cstdint>

namespace orv {

// 64-bit feature word; zero until filled, bit 0 always set once filled.
using FeatureWord = std::uint64_t;

// Code-path test masks: every bit of a mask must be set.
inline constexpr FeatureWord kFeatureSse2 = 0x40;                 // bit 6
inline constexpr FeatureWord kFeatureSsse3 = 0x100;               // bit 8
inline constexpr FeatureWord kFeatureSse41 = 0x200;               // bit 9
inline constexpr FeatureWord kFeatureSse42 = 0x400;               // bit 10
inline constexpr FeatureWord kFeatureAvx = 0x10000;               // bit 16 (AVX with OS YMM state)
inline constexpr FeatureWord kFeatureAvx2Group = 0x9C2000;        // bits 23, 20, 19, 18, 13
inline constexpr FeatureWord kFeatureQixAvx512Group = 0x708000000;// bits 27, 32, 33, 34 (F, ER, PF, CD)
inline constexpr FeatureWord kFeatureAvx512Group = 0x6009000000;  // bits 27, 24, 37, 38 (F, DQ, BW, VL)

// One CPUID result.
struct CpuidRegs {
    std::uint32_t eax = 0;
    std::uint32_t ebx = 0;
    std::uint32_t ecx = 0;
    std::uint32_t edx = 0;
};

// The CPUID and XGETBV results the feature word is built from.
struct CpuidSnapshot {
    CpuidRegs leaf0;     // leaf 0: maximum leaf in EAX, vendor in EBX, EDX, ECX
    CpuidRegs leaf1;     // leaf 1
    CpuidRegs leaf7;     // leaf 7, subleaf 0
    CpuidRegs ext1;      // leaf 0x80000001
    char vendor[13] = {};// the twelve vendor characters of leaf 0, terminated
    std::uint64_t xcr0 = 0; // XCR0; only looked at when leaf 1 ECX bit 27 (OSXSAVE) is set
};

// The reference vendor's identification (CPUID leaf 0, EBX EDX ECX), a
// setting of the build.
inline constexpr const char* kReferenceVendor = ORV_REFERENCE_VENDOR;

// The feature word of the processor described by `snapshot`, bit for bit as
// tabled; 0 when leaf 0 reports a maximum leaf of 0.
FeatureWord compute_feature_word(const CpuidSnapshot& snapshot);

// Fills the vendor text of `snapshot` from its leaf 0 registers.
void set_snapshot_vendor(CpuidSnapshot& snapshot);

// 1 when the twelve characters at `vendor` are the reference vendor's.
int vendor_is_reference(const char* vendor);

// Executes CPUID (leaves 0, 1, 7.0, 0x80000001) and, when the operating
// system has enabled XSAVE, XGETBV on this processor. When leaf 0 reports a
// maximum leaf of 0, only leaf 0 and the vendor are filled.
CpuidSnapshot read_cpuid_snapshot();

// Fills the process's feature word from this processor (one plain store;
// two threads may race, both store the same value).
void cpu_features_init();

// The process's feature word, filled first if it is still zero.
FeatureWord cpu_feature_word();

// True when every bit of `mask` is set in the process's feature word.
bool cpu_has_features(FeatureWord mask);

// 1 when this processor is the reference vendor's, else 0; asked once, then
// cached (filled without a lock; racing threads store the same answer).
int cpu_is_reference_vendor();

}  // namespace orv
