#include "base/busy.h"
#include "base/hooks.h"

#include <gtest/gtest.h>
#include <stdexcept>
#include <vector>

TEST(Busy, ThePointerReturnsWithTheLastGuard)
{
    std::vector<bool> told;
    hooks.busypointer = [&](bool busy) { told.push_back(busy); };
    {
        const Busy outer;
        EXPECT_EQ(told, (std::vector{true}));
        {
            const Busy inner;
        }
        EXPECT_EQ(told, (std::vector{true})) << "the outer work goes on";
    }
    EXPECT_EQ(told, (std::vector{true, false}));
    resethooks();
}

TEST(Busy, AnErrorGivesThePointerBack)
{
    std::vector<bool> told;
    hooks.busypointer = [&](bool busy) { told.push_back(busy); };
    try {
        const Busy busy;
        throw std::runtime_error("disk");
    } catch (const std::runtime_error&) {
        EXPECT_EQ(told, (std::vector{true, false}));
    }
    resethooks();
}
