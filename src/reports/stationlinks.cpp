#include "reports/stationlinks.h"

#include "radio/evaluate.h"
#include "radio/link.h"

namespace
{
/// Distance and margin of a link. False for a pair without a profile, which has no line either.
bool measure(const NetworkTables& tables, const MapGrid& map, std::int16_t interference,
             StationLink& link)
{
    const Unit& left = tables.unit(link.a);
    const Unit& right = tables.unit(link.b);
    Link study;
    if (cutprofile(map, left, right, study.profile) < 1)
        return false;
    setends(left, right, study.profile);
    link.distance_km = study.profile.distkm;
    setlink(tables, link.a, link.b, link.net, study);
    link.margin_db = linkmargin(tables.net(link.net), true, interference, study);
    return true;
}
} // namespace

std::vector<StationLink> stationlinks(const NetworkTables& tables, const MapGrid& map,
                                      const std::array<std::uint8_t, 3>& linestyle,
                                      std::int16_t interference)
{
    QualityTable table;
    evaluate(tables, map, false, interference, table);
    std::vector<StationLink> links;
    for (int a = 1; a < MAXUNIT; ++a)
        for (int b = a + 1; b <= MAXUNIT; ++b) {
            const PairLine line = pairline(tables, table, linestyle, a, b);
            StationLink link{a, b, line.lineclass, line.net};
            if (line.lineclass > 0 && measure(tables, map, interference, link))
                links.push_back(link);
        }
    return links;
}
