#include "radio/linkrange.h"

std::optional<int> rangesample(const Link& link)
{
    const int n = link.profile.intervals();
    if (n < 1 || link.lossat(1) == 0)
        return std::nullopt;
    for (int i = 1; i <= n; ++i)
        if (!(link.gain12 - link.lossat(i) > rangelevel_db))
            return i;
    return n;
}
