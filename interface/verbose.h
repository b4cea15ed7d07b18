// Pieces of the call trace that are tested on their own; the entry points
// the exports use are declared in interface/entry.h.
#pragma once

#include "interface/bounded_text.h"

namespace orv {

// Tracing decision for one value of ORV_VERBOSE: a whole number in base 0
// (decimal, 0x hexadecimal, leading-zero octal) that equals 1 turns it on;
// anything else, trailing characters included, leaves it off.
int parse_verbose_value(const char* text);

// The elapsed-time field of a trace line: "0.00s" for t <= 0, seconds above
// 1 s, then ms, us and ns, each unit used only when the value exceeds 1.
void append_elapsed(BoundedText& text, double seconds);

// The banner printed once before the first trace line.
void format_trace_banner(BoundedText& text, int iface);

// Size of the timing-and-configuration buffer and of the banner buffer.
inline constexpr int kTraceTextSize = 400;

inline constexpr int kCallTextSize = 200;
// Forms a call text of at most kCallTextSize - 1 characters into `buf`: the
// routine `name` without the blanks that pad a report name, then `fmt`.
void format_call_text(char* buf, const char* name, const char* fmt, ...) __attribute__((format(printf, 3, 4)));

}  // namespace orv
