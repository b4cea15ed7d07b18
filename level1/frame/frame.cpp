// The decision shared by every threaded level-1 driver.

#include "level1/frame/frame.h"

#include "service/thread_policy.h"

namespace orv::frame {

i64 parts_for(const Split& split, i64 n, bool splittable)
{
    if (n < split.threshold || !splittable) return 1;
    const i64 threads = get_max_threads_for_domain(kDomainBlas);
    if (threads <= 1) return 1;
    const i64 worth = (n + split.grain - 1) / split.grain;
    return worth < threads ? worth : threads;
}

}  // namespace orv::frame
