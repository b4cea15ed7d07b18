// Numbered diagnostics, printed to standard output, and the fatal exit.
//
// Every diagnostic of the library is a catalogue entry printed by number;
// the numbers are shared with the rest of the product and never change.
#pragma once

namespace orv {

enum MessageNumber : int {
    kMsgLineEnd = 0,               // "\n": empty line, and every message's line end
    kMsgBadParameter = 6,          // (position, routine)
    kMsgInternalCondition = 7,     // (condition, routine)
    kMsgNoWorkspace = 8,           // (routine)
    kMsgIncompatibleOptions = 9,   // (routine)
    kMsgNoWorkMemory = 1089,       // (routine)
    kMsgBadReproducibility = 1209, // ()
    kMsgMinimumRequirements = 1210,// ()
    kMsgNeedSse2 = 1211,           // ()
    kMsgCoprocessor = 1212,        // (routine)
    kMsgCpuNotSupported = 1213,    // (code path)
};

// Size of the shared formatting buffer; a longer message is cut at one less.
inline constexpr int kMessageBufferSize = 512;

// The built-in text of message `number`, or null for a number this library
// does not carry.
const char* catalogue_text(int number);

// Prints message `number` formatted with the `count` arguments that follow
// (a localised text replaces the built-in one when available), then the line
// end, flushing after each. `reserved` is always 0. Number 0 prints only the
// line end. Returns the status of the last flush.
int print_message(int reserved, int number, int count, ...);

// printf to standard output through the shared 512-byte buffer, then flush.
// Serialised with the message printer, whose buffer it shares, so that
// concurrent lines stay whole.
int print_formatted(const char* fmt, ...) __attribute__((format(printf, 1, 2)));

// Ends the process with `code` (nothing runs after it) unless a fatal-exit
// hook is installed, in which case the hook's result is returned.
using FatalExitHook = int (*)(int code);
int fatal_exit(int code);
// Installs `hook` (null removes it) and returns the previous one. Lets a
// host, or a test, observe fatal conditions without losing the process.
FatalExitHook set_fatal_exit_hook(FatalExitHook hook);

}  // namespace orv
