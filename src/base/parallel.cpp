#include "base/parallel.h"

#include <memory>
#include <oneapi/tbb/blocked_range.h>
#include <oneapi/tbb/global_control.h>
#include <oneapi/tbb/parallel_for.h>

namespace onetbb = oneapi::tbb;

static std::unique_ptr<onetbb::global_control> threadlimit;

void setthreads(int count)
{
    threadlimit.reset();
    if (count > 0)
        threadlimit = std::make_unique<onetbb::global_control>(
            onetbb::global_control::max_allowed_parallelism, static_cast<std::size_t>(count));
}

void parallelblocks(std::size_t count, std::size_t grain,
                    const std::function<void(std::size_t, std::size_t)>& body)
{
    onetbb::parallel_for(
        onetbb::blocked_range<std::size_t>(0, count, grain),
        [&](const onetbb::blocked_range<std::size_t>& block) { body(block.begin(), block.end()); });
}
