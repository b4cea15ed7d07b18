// Feature word from CPUID and XGETBV, and the vendor test.

#include "service/cpu_features.h"

#include <cpuid.h>

#include <cstring>

namespace orv {
namespace {

// Zero until filled; bit 0 is set in every filled word.
FeatureWord g_feature_word = 0;
// -1 until asked, then 0 or 1.
int g_reference_vendor = -1;

constexpr bool bit(std::uint32_t value, int n) { return ((value >> n) & 1u) != 0; }
constexpr FeatureWord flag(int n) { return FeatureWord{1} << n; }

CpuidRegs cpuid(std::uint32_t leaf, std::uint32_t subleaf)
{
    CpuidRegs r;
    __cpuid_count(leaf, subleaf, r.eax, r.ebx, r.ecx, r.edx);
    return r;
}

// XCR0 (XGETBV with ECX = 0). Only valid when the OS has set CR4.OSXSAVE,
// which CPUID leaf 1 ECX bit 27 reports; the mnemonic needs no -mxsave.
std::uint64_t read_xcr0()
{
    std::uint32_t lo = 0, hi = 0;
    __asm__ __volatile__("xgetbv" : "=a"(lo), "=d"(hi) : "c"(0));
    return (static_cast<std::uint64_t>(hi) << 32) | lo;
}

}  // namespace

void set_snapshot_vendor(CpuidSnapshot& snapshot)
{
    std::memcpy(snapshot.vendor + 0, &snapshot.leaf0.ebx, 4);
    std::memcpy(snapshot.vendor + 4, &snapshot.leaf0.edx, 4);
    std::memcpy(snapshot.vendor + 8, &snapshot.leaf0.ecx, 4);
    snapshot.vendor[12] = '\0';
}

int vendor_is_reference(const char* vendor)
{
    return std::memcmp(vendor, kReferenceVendor, 12) == 0 ? 1 : 0;
}

FeatureWord compute_feature_word(const CpuidSnapshot& s)
{
    // Step 1: a processor that reports no leaves leaves the word unfilled.
    if (s.leaf0.eax == 0) return 0;

    FeatureWord word = 0;
    const std::uint32_t eax1 = s.leaf1.eax, ecx1 = s.leaf1.ecx, edx1 = s.leaf1.edx;
    const std::uint32_t ebx7 = s.leaf7.ebx, ecx7 = s.leaf7.ecx;

    // Step 2: x87, CMOV, MMX, FXSR; the SSE family only with FXSR.
    if (bit(edx1, 0)) word |= flag(1);
    if (bit(edx1, 15)) word |= flag(2);
    if (bit(edx1, 23)) word |= flag(3);
    if (bit(edx1, 24)) word |= flag(4);
    if ((word & flag(4)) != 0) {
        if (bit(edx1, 25)) word |= flag(5);   // SSE
        if (bit(edx1, 26)) word |= flag(6);   // SSE2
        if (bit(ecx1, 0)) word |= flag(7);    // SSE3
        if (bit(ecx1, 9)) word |= flag(8);    // SSSE3
        if (bit(ecx1, 19)) word |= flag(9);   // SSE4.1
        if (bit(ecx1, 20)) word |= flag(10);  // SSE4.2
        if (bit(ecx1, 22)) word |= flag(11);  // MOVBE
        if (bit(ecx1, 23)) word |= flag(12);  // POPCNT
        if (bit(ecx1, 1)) word |= flag(13);   // PCLMULQDQ
        if (bit(ecx1, 25)) word |= flag(14);  // AES
        if (bit(ebx7, 29)) word |= flag(35);  // SHA
    }

    // Step 3: scalar extensions, independent of FXSR.
    if (bit(ecx1, 30)) word |= flag(17);                    // RDRAND
    if (bit(ebx7, 3) && bit(ebx7, 8)) word |= flag(19);     // BMI1 and BMI2
    if (bit(s.ext1.ecx, 5)) word |= flag(20);               // LZCNT
    if (bit(ebx7, 4)) word |= flag(21);                     // HLE
    if (bit(ebx7, 11)) word |= flag(22);                    // RTM
    if (bit(ebx7, 19)) word |= flag(28);                    // ADX
    if (bit(ebx7, 18)) word |= flag(29);                    // RDSEED

    // Step 4: vector extensions only with the OS saving their state.
    if (bit(ecx1, 27)) {
        const std::uint64_t xcr0 = s.xcr0;
        if ((xcr0 & 0x6) == 0x6) {
            if (bit(ecx1, 28)) word |= flag(16);  // AVX
            if (bit(ecx1, 29)) word |= flag(15);  // F16C
            if (bit(ebx7, 5)) word |= flag(23);   // AVX2
            if (bit(ecx1, 12)) word |= flag(18);  // FMA
            if ((xcr0 & 0x18) == 0x18) {
                if (bit(ebx7, 14)) word |= flag(36);  // MPX
            }
            if ((xcr0 & 0xE0) == 0xE0) {
                if (bit(ebx7, 16)) word |= flag(27);  // AVX-512F
                if (bit(ebx7, 28)) word |= flag(34);  // AVX-512CD
                if (bit(ebx7, 27)) word |= flag(32);  // AVX-512ER
                if (bit(ebx7, 26)) word |= flag(33);  // AVX-512PF
                if (bit(ebx7, 17)) word |= flag(24);  // AVX-512DQ
                if (bit(ebx7, 30)) word |= flag(37);  // AVX-512BW
                if (bit(ebx7, 31)) word |= flag(38);  // AVX-512VL
                if (bit(ebx7, 21)) word |= flag(30);  // AVX-512IFMA
                if (bit(ecx7, 1)) word |= flag(39);   // AVX-512VBMI
            }
        }
    }

    // Step 5: the low-power in-order cores, by display model.
    const std::uint32_t model = ((eax1 >> 16) & 0xF) * 16 + ((eax1 >> 4) & 0xF);
    if (model == 0x1C || model == 0x26 || model == 0x27) word |= flag(31);

    return word | flag(0);
}

CpuidSnapshot read_cpuid_snapshot()
{
    CpuidSnapshot s;
    s.leaf0 = cpuid(0, 0);
    set_snapshot_vendor(s);
    if (s.leaf0.eax == 0) return s;
    s.leaf1 = cpuid(1, 0);
    // Leaves 7 and 0x80000001 are read without a look at the maximum leaves.
    s.leaf7 = cpuid(7, 0);
    s.ext1 = cpuid(0x80000001u, 0);
    if (bit(s.leaf1.ecx, 27)) s.xcr0 = read_xcr0();
    return s;
}

void cpu_features_init()
{
    const FeatureWord word = compute_feature_word(read_cpuid_snapshot());
    __atomic_store_n(&g_feature_word, word, __ATOMIC_RELAXED);
}

FeatureWord cpu_feature_word()
{
    FeatureWord word = __atomic_load_n(&g_feature_word, __ATOMIC_RELAXED);
    if (word == 0) {
        cpu_features_init();
        word = __atomic_load_n(&g_feature_word, __ATOMIC_RELAXED);
    }
    return word;
}

bool cpu_has_features(FeatureWord mask) { return (cpu_feature_word() & mask) == mask; }

int cpu_is_reference_vendor()
{
    int answer = __atomic_load_n(&g_reference_vendor, __ATOMIC_RELAXED);
    if (answer < 0) {
        CpuidSnapshot s;
        s.leaf0 = cpuid(0, 0);
        set_snapshot_vendor(s);
        answer = vendor_is_reference(s.vendor);
        __atomic_store_n(&g_reference_vendor, answer, __ATOMIC_RELAXED);
    }
    return answer;
}

}  // namespace orv
