// Processor clock helpers of the call trace.
#pragma once

namespace orv {

// The frequency in MHz written in a processor brand string: the number just
// before its first "MHz", "GHz" or "THz", written either as d.dd or as dddd.
// 0 when the string has no such number.
double brand_frequency_mhz(const char* brand);

// The frequency of this processor according to its brand string, in GHz;
// 0 when the brand string names none.
double processor_brand_ghz();

// The time-stamp rate in GHz that seconds_clock() divides by; calibrates on
// first use.
double timestamp_rate_ghz();

}  // namespace orv
