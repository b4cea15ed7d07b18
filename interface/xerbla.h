// The error handler of the argument checkers and of internal reporters.
#pragma once

#include <cstddef>

namespace orv {

// Handler of the process-wide error-hook slot: (routine name, address of the
// code, name length). The name need not be terminated. The length has the
// width of the hidden length that Fortran compilers pass after a character
// argument, so that the host program's own XERBLA can take the slot.
using ErrorHook = void (*)(const char* name, const int* info, std::size_t len);

// Reports `*info` for routine `name` (at most 20 characters of it are shown):
// 1000 no workspace, 1001 incompatible options, 1089 no work memory, 1212
// coprocessor trouble, below 1 an internal condition, other values the
// position of an invalid argument. Prints and returns; never ends the process.
void xerbla(const char* name, const int* info, std::size_t len);

// Puts `hook` into the error-hook slot if it is still empty; true when it
// went in. The first registration wins for the life of the process.
bool offer_error_hook(ErrorHook hook);
// The handler in the slot, or null before any registration.
ErrorHook error_hook();

// Hands a report to the handler in the slot, or to xerbla while the slot is
// still empty.
void report_error(const char* name, const int* info, std::size_t len);

// For drivers that just tried to obtain workspace: returns 0 when `status`
// is non-zero; otherwise reports code 1089 for the terminated `name` and
// returns 1.
int report_workspace_failure(int status, const char* name);

}  // namespace orv
