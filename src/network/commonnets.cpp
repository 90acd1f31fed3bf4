#include "network/commonnets.h"

std::vector<int> commonnets(const NetworkTables& tables, int unitA, int unitB)
{
    std::vector<int> nets;
    const auto enabled = [&](int unit) {
        return unit >= 1 && unit <= MAXUNIT && tables.unit(unit).enabled != 0;
    };
    if (!enabled(unitA) || !enabled(unitB))
        return nets;
    for (int n = 1; n <= MAXNET; ++n) {
        const Net& net = tables.net(n);
        if (net.ismember(unitA) && net.ismember(unitB))
            nets.push_back(n);
    }
    return nets;
}
