#include "base/parallel.h"

#include <gtest/gtest.h>
#include <vector>

TEST(Parallel, EveryIndexIsVisitedOnceWhateverTheThreads)
{
    for (const int threads : {1, 2, 0}) {
        setthreads(threads);
        std::vector<int> visits(1000);
        parallelblocks(visits.size(), 7, [&](std::size_t first, std::size_t last) {
            for (std::size_t i = first; i < last; ++i)
                ++visits[i];
        });
        EXPECT_EQ(visits, std::vector<int>(1000, 1)) << threads;
    }
    setthreads(0);
}

TEST(Parallel, NothingToDoCallsNothing)
{
    parallelblocks(0, 1, [](std::size_t, std::size_t) { FAIL(); });
}
