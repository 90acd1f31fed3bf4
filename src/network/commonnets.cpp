#include "network/commonnets.h"

std::vector<int> commonnets(const NetworkTables& tables, int unitA, int unitB)
{
    std::vector<int> nets;
    const auto enabled = [&](int unit) {
        return unit >= 1 && unit <= MAXUNIT &&
               tables.units[static_cast<std::size_t>(unit)].enabled != 0;
    };
    if (!enabled(unitA) || !enabled(unitB))
        return nets;
    for (int n = 1; n <= MAXNET; ++n) {
        const Net& net = tables.nets[static_cast<std::size_t>(n)];
        if (net.ismember(unitA) && net.ismember(unitB))
            nets.push_back(n);
    }
    return nets;
}
