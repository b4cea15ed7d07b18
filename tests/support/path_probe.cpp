// For test scripts that run other programs per code path: prints the skip
// marker when ORV_DEBUG_CPU_TYPE forces a path this processor cannot execute.
#include "code_paths.h"

int main()
{
    orvtest::announce_unrunnable_forced_path();
    return 0;
}
