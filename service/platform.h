// Operating-system services, the only code that differs between platforms.
//
// Everything else in the library reaches the environment, standard output,
// process termination and the clocks through these functions; the matching
// definitions live in platform_posix.cpp and platform_windows.cpp.
#pragma once

#include <cstddef>
#include <cstdint>

namespace orv::platform {

// Copies the value of environment variable `name` into `buf` (`size` bytes,
// always terminated, cut short when it does not fit) and returns the length
// of the whole value; 0 or less means the variable is unset or empty.
int read_env(const char* name, char* buf, int size);

// Writes `text` to the process's standard output as it is.
void write_stdout(const char* text);
// Flushes every output stream; returns the C runtime's fflush status.
int flush_all();

// Replaces the built-in text of catalogue message `number` by the localised
// text from the message library, when one is available and has it. Returns
// false (and leaves `buf` alone) otherwise.
bool localized_message(int number, char* buf, int size);

// Short name of the operating system for the trace banner.
const char* system_name();

// Ends the process at once with `code`; no clean-up handlers run.
[[noreturn]] void terminate_process(int code);

// Gives the rest of the time slice to another ready thread.
void yield_processor();

// A fine-grained reference clock for calibrating the time-stamp counter:
// its tick count and ticks per second (0 when the platform has none).
std::int64_t reference_ticks();
std::int64_t reference_ticks_per_second();

// A coarse clock (the C runtime's clock()) and its ticks per second; the
// calibration busy-waits on it.
long coarse_ticks();
long coarse_ticks_per_second();

// The host program's own error handler: a function "xerbla_" with the
// Fortran argument list (routine name, address of the code, hidden length of
// the name), when the process defines one outside this library; else null.
using HostErrorHandler = void (*)(const char* name, const int* info, std::size_t name_length);
HostErrorHandler host_error_handler();

// Thread-local words: a key names one, whose value is 0 in every thread until
// that thread writes its own. Creation returns false when the system has no
// key left to give.
using ThreadKey = std::uintptr_t;
bool create_thread_key(ThreadKey* key);
void delete_thread_key(ThreadKey key);
std::uintptr_t read_thread_key(ThreadKey key);
void write_thread_key(ThreadKey key, std::uintptr_t value);

}  // namespace orv::platform
