#include "radio/evaluate.h"

#include "base/busy.h"
#include "base/hooks.h"
#include "base/numbers.h"
#include "base/parallel.h"
#include "radio/link.h"

#include <algorithm>
#include <vector>

QualityTable quality;

namespace
{
/// Fewest pairs worth a thread's while: some 30 microseconds of work.
constexpr std::size_t pairgrain = 8;
/// The role that is never linked to its like: subordinate, slave or terminal.
constexpr int subordinate = 1;
/// Relaying roles: the relay of a voice net, the node of a swarm.
constexpr int voicerelay = 2;
constexpr int swarmnode = 0;
/// A net that asks for more hops than this has none.
constexpr int mosthops = 40;

/// On both scales, signal quality and reachability, a margin of 0 dB and a direct link are 50.
constexpr int direct = 50;

struct UnitPair {
    int a;
    int b;
};

bool takespart(const Net& net, bool allnets)
{
    return allnets || net.active();
}

bool enabled(const NetworkTables& tables, int unit)
{
    return tables.unit(unit).enabled != 0;
}

std::vector<UnitPair> enabledpairs(const NetworkTables& tables)
{
    std::vector<UnitPair> pairs;
    pairs.reserve(std::size_t{MAXUNIT} * (MAXUNIT - 1) / 2);
    for (int a = 1; a < MAXUNIT; ++a) {
        for (int b = a + 1; b <= MAXUNIT; ++b)
            if (enabled(tables, a) && enabled(tables, b))
                pairs.push_back({a, b});
    }
    return pairs;
}

/// The pairs that a station can have a part in.
std::vector<UnitPair> pairsof(const NetworkTables& tables, int unit)
{
    std::vector<UnitPair> pairs;
    for (int other = 1; other <= MAXUNIT; ++other)
        if (other != unit && enabled(tables, unit) && enabled(tables, other))
            pairs.push_back({std::min(unit, other), std::max(unit, other)});
    return pairs;
}

/// Both members, and not both of the role that only talks to others.
bool linkable(const Net& net, const UnitPair& pair)
{
    return net.ismember(pair.a) && net.ismember(pair.b) &&
           !(net.role(pair.a) == subordinate && net.role(pair.b) == subordinate);
}

/// Enters a margin in dB into both cells of a pair. What is no number counts as no signal.
void entermargin(double margin_db, int net, const UnitPair& pair, QualityTable& table)
{
    const double rounded = roundtoeven(margin_db);
    int signal = 1;
    if (rounded > 1 - direct)
        signal = rounded < 99 - direct ? static_cast<int>(rounded) + direct : 99;
    table.at(net, pair.a, pair.b) = static_cast<std::uint8_t>(signal);
    if (rounded >= 0)
        table.at(net, pair.b, pair.a) = direct;
}

/// All nets of one pair, on one profile. A profile that fails for one net fails for all.
void evaluatepair(const NetworkTables& tables, const MapGrid& map, bool allnets,
                  std::int16_t interference, const UnitPair& pair, Link& link, QualityTable& table)
{
    const Unit& left = tables.unit(pair.a);
    const Unit& right = tables.unit(pair.b);
    bool cut = false;
    for (int n = 1; n <= MAXNET; ++n) {
        const Net& net = tables.net(n);
        if (!takespart(net, allnets) || !linkable(net, pair))
            continue;
        if (!cut) {
            if (cutprofile(map, left, right, link.profile) < 1)
                return;
            setends(left, right, link.profile);
            cut = true;
        }
        setlink(tables, pair.a, pair.b, n, link);
        if (finitelink(link))
            entermargin(linkmargin(net, true, interference, link), n, pair, table);
    }
}

void evaluatepairs(const NetworkTables& tables, const MapGrid& map, bool allnets,
                   std::int16_t interference, const std::vector<UnitPair>& pairs,
                   QualityTable& table)
{
    parallelblocks(pairs.size(), pairgrain, [&](std::size_t first, std::size_t last) {
        Link link;
        for (std::size_t i = first; i < last; ++i)
            evaluatepair(tables, map, allnets, interference, pairs[i], link, table);
    });
}

/// Takes all results of a station off the table.
void clearunit(int unit, QualityTable& table)
{
    for (int other = 1; other <= MAXUNIT; ++other)
        for (int n = 1; n <= MAXNET; ++n)
            table.at(n, unit, other) = table.at(n, other, unit) = 0;
}

/// Takes what retransmissions added to the reachability of a net off again.
void keepdirect(int net, QualityTable& table)
{
    for (int a = 1; a < MAXUNIT; ++a)
        for (int b = a + 1; b <= MAXUNIT; ++b)
            table.at(net, b, a) = table.at(net, a, b) >= direct ? direct : 0;
}

/// The reachability of one net's enabled members, in ascending order of stations, as a symmetric
/// square of bytes, so that a row is worked through with a few vector instructions.
class Reachability
{
public:
    Reachability(const NetworkTables& tables, int netnumber, const QualityTable& table)
    {
        const Net& net = tables.net(netnumber);
        for (int unit = 1; unit <= MAXUNIT; ++unit) {
            if (!net.ismember(unit) || !enabled(tables, unit))
                continue;
            units[count] = unit;
            roles[count] = net.role(unit);
            ++count;
        }
        for (std::size_t p = 0; p < count; ++p) {
            cells[p][p] = direct; // never below a threshold: no pair
            for (std::size_t q = p + 1; q < count; ++q)
                cells[p][q] = cells[q][p] = table.at(netnumber, units[q], units[p]);
        }
    }

    void store(int netnumber, QualityTable& table) const
    {
        for (std::size_t p = 0; p < count; ++p)
            for (std::size_t q = p + 1; q < count; ++q)
                table.at(netnumber, units[q], units[p]) = cells[p][q];
    }

    std::size_t members() const { return count; }

    /// One round: pairs that can talk through a relay within h retransmissions. True when the
    /// round added any.
    bool addround(int h, int relayrole)
    {
        bool changed = false;
        for (std::size_t k = 0; k < count; ++k)
            if (roles[k] == relayrole)
                changed = addrelay(k, h) || changed;
        return changed;
    }

private:
    static constexpr std::size_t rowwidth = 64; ///< stations, filled up to whole vectors
    using Row = std::array<std::uint8_t, rowwidth>;

    bool addrelay(std::size_t k, int h)
    {
        const auto threshold = static_cast<std::uint8_t>(direct - h);
        // What each member has left on its way to the relay: 49 for a direct neighbour.
        Row reach{};
        for (std::size_t m = 0; m < rowwidth; ++m)
            reach[m] = cells[k][m] > threshold ? static_cast<std::uint8_t>(cells[k][m] - 1) : 0;
        reach[k] = 0;
        std::uint8_t changed = 0;
        for (std::size_t p = 0; p < count; ++p) {
            if (reach[p] == 0)
                continue;
            // Within h retransmissions: 98 - reach(p) - reach(q) < h. At most 40 of them keep a
            // member that doesn't reach the relay out.
            const auto enough = static_cast<std::uint8_t>(98 - h - reach[p]);
            changed |= raiserow(cells[p], reach, enough, threshold);
        }
        return changed != 0;
    }

    /// Raises what is below the threshold to it, where the reach is enough. Non-zero if any was.
    static std::uint8_t raiserow(Row& row, const Row& reach, std::uint8_t enough,
                                 std::uint8_t threshold)
    {
        std::uint8_t changed = 0;
        for (std::size_t q = 0; q < rowwidth; ++q) {
            const bool raised = (reach[q] > enough) & (row[q] < threshold);
            row[q] = raised ? threshold : row[q];
            changed |= static_cast<std::uint8_t>(raised);
        }
        return changed;
    }

    std::size_t count = 0;
    std::array<int, MAXUNIT> units{};
    std::array<int, MAXUNIT> roles{};
    std::array<Row, MAXUNIT> cells{};
};

/// The rules of the line colours, taken apart.
struct LineRules {
    explicit LineRules(const std::array<std::uint8_t, 3>& style)
        : yellowfrom(style[0] & 127), greenfrom(style[1] & 127), red((style[0] & 128) != 0),
          yellow((style[1] & 128) != 0), green((style[2] & 128) != 0)
    {
    }
    int yellowfrom; ///< on the scale of signal quality
    int greenfrom;
    bool red, yellow, green; ///< lines of this colour are drawn
};

int reachclass(int reach, const LineRules& rules)
{
    if (reach > 0)
        return rules.green ? std::max(4, reach - 44) : 0;
    return rules.red ? 2 : 0;
}

int signalclass(int signal, const LineRules& rules)
{
    if (signal < rules.yellowfrom) {
        const int weak = signal > rules.yellowfrom - 4 ? 2 : 1;
        return rules.red ? weak : 0;
    }
    if (signal < rules.greenfrom)
        return rules.yellow ? 3 : 0;
    const int strong = std::clamp((signal - rules.greenfrom) / 3 + 4, 4, 6);
    return rules.green ? strong : 0;
}
} // namespace

void evaluatedirect(const NetworkTables& tables, const MapGrid& map, bool allnets,
                    std::int16_t interference, QualityTable& table)
{
    evaluatepairs(tables, map, allnets, interference, enabledpairs(tables), table);
}

void addretransmissions(const NetworkTables& tables, int netnumber, QualityTable& table)
{
    const Net& net = tables.net(netnumber);
    int hops = 0;
    int relayrole = 0;
    switch (net.kind()) {
    case Topology::voice:
        hops = 1;
        relayrole = voicerelay;
        break;
    case Topology::swarm:
        hops = net.maxretrans;
        relayrole = swarmnode;
        break;
    default:
        return;
    }
    Reachability reachability(tables, netnumber, table);
    if (reachability.members() < 3 || hops > mosthops)
        return;
    for (int h = 1; h <= hops; ++h)
        if (!reachability.addround(h, relayrole))
            break;
    reachability.store(netnumber, table);
}

void evaluate(const NetworkTables& tables, const MapGrid& map, bool allnets,
              std::int16_t interference, QualityTable& table)
{
    table.clear();
    evaluatedirect(tables, map, allnets, interference, table);
    for (int n = 1; n <= MAXNET; ++n)
        if (takespart(tables.net(n), allnets))
            addretransmissions(tables, n, table);
}

void reevaluate(const NetworkTables& tables, const MapGrid& map, bool allnets,
                std::int16_t interference, int unit, QualityTable& table)
{
    clearunit(unit, table);
    evaluatepairs(tables, map, allnets, interference, pairsof(tables, unit), table);
    for (int n = 1; n <= MAXNET; ++n)
        if (takespart(tables.net(n), allnets)) {
            keepdirect(n, table);
            addretransmissions(tables, n, table);
        }
}

void evalnets(bool allnets)
{
    const Busy busy;
    hooks.pumpevents();
    evaluate(network, mapgrid, allnets, interf, quality);
}

PairLine pairline(const NetworkTables& tables, const QualityTable& table,
                  const std::array<std::uint8_t, 3>& linestyle, int a, int b)
{
    const LineRules rules(linestyle);
    PairLine line;
    for (int n = 1; n <= MAXNET; ++n) {
        const Net& net = tables.net(n);
        const int signal = table.at(n, a, b);
        if (!net.active() || signal == 0)
            continue;
        const bool relayed = net.kind() == Topology::swarm && net.maxretrans > 0;
        const int ofnet =
            relayed ? reachclass(table.at(n, b, a), rules) : signalclass(signal, rules);
        // The worst net wins; but a net without a line clears what those before it gave.
        if (line.lineclass == 0 || ofnet < line.lineclass)
            line = {ofnet, ofnet == 0 ? 0 : n};
    }
    return line;
}

std::int32_t linecolour(int lineclass)
{
    constexpr std::int32_t red = 0x0000FF;
    constexpr std::int32_t yellow = 0x00FFFF;
    constexpr std::int32_t green = 0x00FF00;
    if (lineclass <= 2)
        return red;
    return lineclass == 3 ? yellow : green;
}

int lineclass(const NetworkTables& tables, const QualityTable& table,
              const std::array<std::uint8_t, 3>& linestyle, int a, int b)
{
    return pairline(tables, table, linestyle, a, b).lineclass;
}
