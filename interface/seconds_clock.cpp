// The seconds clock of the call trace: the time-stamp counter divided by a
// rate calibrated once per process.

#include "interface/seconds_clock.h"

#include <cpuid.h>
#include <x86intrin.h>

#include <atomic>
#include <cstdint>
#include <cstring>

#include "interface/entry.h"
#include "service/platform.h"

namespace orv {
namespace {

std::atomic<double> g_rate_ghz{-1.0};

// CPUID serialises, so earlier instructions cannot drift past the reading.
std::uint64_t serialized_timestamp()
{
    unsigned a, b, c, d;
    __cpuid(0, a, b, c, d);
    return __rdtsc();
}

void read_brand_string(char brand[49])
{
    std::memset(brand, 0, 49);
    unsigned a, b, c, d;
    __cpuid(0x80000000u, a, b, c, d);
    if (a < 0x80000004u) return;
    for (unsigned leaf = 0; leaf < 3; ++leaf) {
        unsigned regs[4];
        __cpuid(0x80000002u + leaf, regs[0], regs[1], regs[2], regs[3]);
        std::memcpy(brand + 16 * leaf, regs, sizeof regs);
    }
}

bool is_digit(char c) { return c >= '0' && c <= '9'; }

// Rate from the reference clock over the coarse clock's busy-wait. The wait
// is at least 100 coarse ticks and about a tenth of a second, long enough
// for the reading overheads to vanish in the ratio.
double calibrate_against_reference()
{
    const std::int64_t frequency = platform::reference_ticks_per_second();
    const std::int64_t reference_start = platform::reference_ticks();
    const std::uint64_t stamp_start = serialized_timestamp();
    const long per_second = platform::coarse_ticks_per_second();
    const long wait = per_second / 10 > 100 ? per_second / 10 : 100;
    const long coarse_start = platform::coarse_ticks();
    if (coarse_start != -1) {
        while (platform::coarse_ticks() - coarse_start < wait) {
            // A coarse clock that stands still must not hang the first call.
            if (frequency > 0 && platform::reference_ticks() - reference_start > frequency) break;
        }
    }
    const std::int64_t reference_end = platform::reference_ticks();
    const std::uint64_t stamp_end = serialized_timestamp();
    const double reference_elapsed = static_cast<double>(reference_end - reference_start);
    if (reference_elapsed >= 0.0001 && frequency != 0 && stamp_end != stamp_start)
        return static_cast<double>(stamp_end - stamp_start) / (reference_elapsed / static_cast<double>(frequency)) *
               1e-9;
    return 0.0;
}

// Last resort when neither the calibration nor the brand string gave a
// rate: the counter against the reference clock alone, over 10 ms.
double measure_without_coarse_clock()
{
    const std::int64_t frequency = platform::reference_ticks_per_second();
    if (frequency <= 0) return 0.0;
    const std::int64_t start = platform::reference_ticks();
    const std::uint64_t stamp_start = serialized_timestamp();
    std::int64_t now = start;
    while ((now = platform::reference_ticks()) - start < frequency / 100) {}
    const std::uint64_t stamp_end = serialized_timestamp();
    if (now <= start || stamp_end <= stamp_start) return 0.0;
    return static_cast<double>(stamp_end - stamp_start) / (static_cast<double>(now - start) / frequency) * 1e-9;
}

double calibrate()
{
    double rate = calibrate_against_reference();
    if (rate > 0.0) return rate;
    rate = processor_brand_ghz();
    if (rate > 0.0) return rate;
    rate = measure_without_coarse_clock();
    // Nothing measurable: count in nominal nanoseconds rather than divide by 0.
    return rate > 0.0 ? rate : 1.0;
}

}  // namespace

double brand_frequency_mhz(const char* brand)
{
    static const struct {
        const char* unit;
        double to_mhz;
    } kUnits[] = {{"MHz", 1.0}, {"GHz", 1000.0}, {"THz", 1000000.0}};

    const std::size_t length = strnlen(brand, 64);
    for (std::size_t at = 0; at + 3 <= length; ++at) {
        for (const auto& unit : kUnits) {
            if (std::strncmp(brand + at, unit.unit, 3) != 0) continue;
            if (at < 4) return 0.0;
            const char* n = brand + at - 4;
            double value;
            if (is_digit(n[0]) && n[1] == '.' && is_digit(n[2]) && is_digit(n[3]))
                value = (n[0] - '0') + ((n[2] - '0') * 10 + (n[3] - '0')) / 100.0;
            else if (is_digit(n[0]) && is_digit(n[1]) && is_digit(n[2]) && is_digit(n[3]))
                value = ((n[0] - '0') * 1000 + (n[1] - '0') * 100 + (n[2] - '0') * 10 + (n[3] - '0'));
            else
                return 0.0;
            return value * unit.to_mhz;
        }
    }
    return 0.0;
}

double processor_brand_ghz()
{
    char brand[49];
    read_brand_string(brand);
    return brand_frequency_mhz(brand) * 0.001;
}

double timestamp_rate_ghz()
{
    double rate = g_rate_ghz.load(std::memory_order_relaxed);
    if (rate == -1.0) {
        // Two threads may both calibrate; either result is a valid rate.
        rate = calibrate();
        g_rate_ghz.store(rate, std::memory_order_relaxed);
    }
    return rate;
}

double seconds_clock()
{
    const double rate = timestamp_rate_ghz();
    return static_cast<double>(serialized_timestamp()) / (rate * 1e9);
}

}  // namespace orv
