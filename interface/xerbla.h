// The error handler of the argument checkers and of internal reporters.
#pragma once

namespace orv {

// Handler of the process-wide error-hook slot: (routine name, address of the
// code, name length). The name need not be terminated.
using ErrorHook = void (*)(const char* name, const int* info, int len);

// Reports `*info` for routine `name` (at most 20 characters of it are shown):
// 1000 no workspace, 1001 incompatible options, 1089 no work memory, 1212
// coprocessor trouble, below 1 an internal condition, other values the
// position of an invalid argument. Prints and returns; never ends the process.
void xerbla(const char* name, const int* info, int len);

// Puts `hook` into the error-hook slot if it is still empty; true when it
// went in. The first registration wins for the life of the process.
bool offer_error_hook(ErrorHook hook);
// The handler in the slot, or null before any registration.
ErrorHook error_hook();

// For drivers that just tried to obtain workspace: returns 0 when `status`
// is non-zero; otherwise reports code 1089 for the terminated `name` through
// the error hook (or directly when none is registered) and returns 1.
int report_workspace_failure(int status, const char* name);

}  // namespace orv
