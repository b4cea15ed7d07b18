// Choice of the build that every dispatch slot installs.

#include "service/dispatch.h"

#include "interface/messages.h"
#include "service/cbwr.h"

namespace orv {

bool build_for_code_path(CodePath code, int branch, Build* build)
{
    switch (code) {
    case kPathAvx512: *build = Build::avx512; return true;
    case kPathAvx512Qix: *build = Build::avx512_qix; return true;
    case kPathAvx2: *build = Build::avx2; return true;
    case kPathAvx: *build = Build::avx; return true;
    case kPathMc3: *build = Build::mc3; return true;
    // The two oldest paths run the reproducible build under any mode, the
    // automatic one included, so that their results match the compatible branch.
    case kPathMc: *build = branch == kBranchNone ? Build::mc : Build::cnr; return true;
    case kPathDef: *build = branch == kBranchNone ? Build::def : Build::cnr; return true;
    default: return false;
    }
}

Build dispatch_build()
{
    const CodePath code = cpu_detect();
    const int branch = code == kPathDef || code == kPathMc ? cbwr_get(1) : kBranchNone;
    Build build;
    if (build_for_code_path(code, branch, &build)) return build;
    print_message(0, kMsgCpuNotSupported, 1, cpu_detect());
    fatal_exit(1);
    // Only reached when a fatal-exit hook returns: keep computing correctly.
    return Build::cnr;
}

}  // namespace orv
