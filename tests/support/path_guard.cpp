// Linked into the test programs that run once per code path: a run forced
// onto a path this processor cannot execute ends before any test starts,
// reporting itself as skipped instead of dying at an unknown instruction.
#include <cstdlib>

#include "code_paths.h"

namespace {

const bool g_checked = [] {
    if (orvtest::announce_unrunnable_forced_path()) std::_Exit(0);
    return true;
}();

}  // namespace
