#include "slowevaluation.h"

#include "engine/itm/lr.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <vector>

namespace
{
double power10log(float power)
{
    return 10 * std::log10(std::max(1e-8, static_cast<double>(power)));
}

/// Profile block of a pair; its first member is 0 when there is none.
std::vector<double> profileof(const MapGrid& map, const Unit& a, const Unit& b)
{
    std::vector<double> block(166, 0.0);
    const double sx = (map.width - 1) / (double{map.maplon[1]} - double{map.maplon[0]});
    const double sy = (map.height - 1) / (double{map.maplat[0]} - double{map.maplat[3]});
    const double x1 = (double{a.lon} - double{map.maplon[0]}) * sx;
    const double x2 = (double{b.lon} - double{map.maplon[0]}) * sx;
    const double y1 = (double{a.lat} - double{map.maplat[3]}) * sy;
    const double y2 = (double{b.lat} - double{map.maplat[3]}) * sy;
    if (std::min(x1, x2) < 0 || std::max(x1, x2) > map.width - 1 || std::min(y1, y2) < 0 ||
        std::max(y1, y2) > map.height - 1)
        return block;
    const double cells = std::hypot(x2 - x1, y2 - y1);
    const int n = static_cast<int>(std::rint(std::min(cells, 157.0)));
    if (n == 0)
        return block;
    block[1] = n;
    block[2] = cells / (map.height - 1) * double{map.record.mapsize} * 1000 / n;
    for (int i = 0; i <= n; ++i) {
        const auto x = static_cast<std::size_t>(std::rint(x1 + i * (x2 - x1) / n));
        const auto y = static_cast<std::size_t>(std::rint(y1 + i * (y2 - y1) / n));
        block[static_cast<std::size_t>(i) + 3] =
            map.samples[y * static_cast<std::size_t>(map.width) + x];
    }
    block[3] = double{a.elevation};
    block[static_cast<std::size_t>(n) + 3] = double{b.elevation};
    return block;
}

double marginof(const NetworkTables& tables, const std::vector<double>& block, std::size_t a,
                std::size_t b, std::size_t n, std::int16_t interference)
{
    const Net& net = tables.nets[n];
    const RadioSystem& first = tables.systems[net.system[a]];
    const RadioSystem& second = tables.systems[net.system[b]];
    const double common = 30 - double{first.lineloss} + double{first.gain} + double{second.gain} -
                          double{second.lineloss};
    const double there = power10log(first.power) + common - double{second.threshold};
    const double back = power10log(second.power) + common - double{first.threshold};

    LRRecord record;
    std::memset(&record, 0, sizeof record);
    record.freq = (double{net.fmin} + double{net.fmax}) / 2;
    record.ns = double{net.refractivity};
    record.eps = double{net.permittivity};
    record.sgm = double{net.conductivity};
    record.pol = net.polarisation;
    record.clim = net.climate;
    record.varmode = net.statmode % 100;
    record.h1 = double{tables.antheights[n][a] != 0 ? tables.antheights[n][a] : first.height};
    record.h2 = double{tables.antheights[n][b] != 0 ? tables.antheights[n][b] : second.height};
    record.ptime = double{net.ptime};
    record.ploc = double{net.plocation};
    record.psit = double{net.psituation};
    record.interf = interference;
    record.startpt = static_cast<std::int32_t>(block[1]);
    std::vector<double> losses(166, 0.0);
    LR(block.data(), losses.data(), &record);
    double loss = record.loss;
    if (net.statmode >= 100)
        loss += std::max(1.0, std::log10(record.freq / 100) + 16.5 - 0.00012 * block[1] * block[2]);
    return std::min(there, back) - loss;
}

void retransmit(const NetworkTables& tables, int n, QualityTable& table)
{
    const Net& net = tables.nets[static_cast<std::size_t>(n)];
    const int topology = net.topology % 256;
    const int hops = topology == 0 ? 1 : net.maxretrans;
    const int relay = topology == 0 ? 2 : 0;
    std::vector<int> members;
    for (int u = 1; u <= MAXUNIT; ++u)
        if (net.member[static_cast<std::size_t>(u)] >= 128 &&
            tables.units[static_cast<std::size_t>(u)].enabled != 0)
            members.push_back(u);
    if (topology == 1 || members.size() < 3 || hops > 40)
        return;
    for (int h = 1; h <= hops; ++h) {
        bool changed = false;
        for (const int k : members) {
            if (net.member[static_cast<std::size_t>(k)] % 128 != relay)
                continue;
            std::vector<int> reach(MAXUNIT + 1, 0);
            for (const int m : members)
                if (m != k && table.at(n, std::max(m, k), std::min(m, k)) > 50 - h)
                    reach[static_cast<std::size_t>(m)] =
                        table.at(n, std::max(m, k), std::min(m, k)) - 1;
            for (const int p : members)
                for (const int q : members)
                    if (p < q && table.at(n, q, p) < 50 - h &&
                        98 - reach[static_cast<std::size_t>(p)] -
                                reach[static_cast<std::size_t>(q)] <
                            h) {
                        table.at(n, q, p) = static_cast<std::uint8_t>(50 - h);
                        changed = true;
                    }
        }
        if (!changed)
            return;
    }
}
} // namespace

void slowevaluation(const NetworkTables& tables, const MapGrid& map, bool allnets,
                    std::int16_t interference, QualityTable& table)
{
    table.clear();
    for (std::size_t n = 1; n <= MAXNET; ++n) {
        const Net& net = tables.nets[n];
        if (!allnets && net.topology < 256)
            continue;
        for (std::size_t a = 1; a <= MAXUNIT; ++a)
            for (std::size_t b = a + 1; b <= MAXUNIT; ++b) {
                if (tables.units[a].enabled == 0 || tables.units[b].enabled == 0 ||
                    net.member[a] < 128 || net.member[b] < 128 ||
                    (net.member[a] == 129 && net.member[b] == 129))
                    continue;
                const std::vector<double> block = profileof(map, tables.units[a], tables.units[b]);
                if (block[1] < 1)
                    continue;
                const double m = std::rint(marginof(tables, block, a, b, n, interference));
                const int ni = static_cast<int>(n);
                const int ai = static_cast<int>(a);
                const int bi = static_cast<int>(b);
                table.at(ni, ai, bi) =
                    static_cast<std::uint8_t>(std::max(1.0, std::min(99.0, m + 50)));
                if (m >= 0)
                    table.at(ni, bi, ai) = 50;
            }
        retransmit(tables, static_cast<int>(n), table);
    }
}

int slowlineclass(const NetworkTables& tables, const QualityTable& table,
                  const std::array<std::uint8_t, 3>& linestyle, int a, int b)
{
    const int t1 = linestyle[0] % 128;
    const int t2 = linestyle[1] % 128;
    const bool red = linestyle[0] >= 128;
    const bool yellow = linestyle[1] >= 128;
    const bool green = linestyle[2] >= 128;
    int best = 0;
    for (int n = 1; n <= MAXNET; ++n) {
        const Net& net = tables.nets[static_cast<std::size_t>(n)];
        const int x = table.at(n, a, b);
        const int y = table.at(n, b, a);
        if (net.topology < 256 || x == 0)
            continue;
        int lines = 0;
        if (net.topology % 256 == 2 && net.maxretrans > 0) {
            if (y > 0)
                lines = green ? std::max(4, y - 44) : 0;
            else
                lines = red ? 2 : 0;
        } else if (x < t1) {
            if (red)
                lines = x > t1 - 4 ? 2 : 1;
        } else if (x < t2) {
            lines = yellow ? 3 : 0;
        } else if (green) {
            lines = static_cast<int>(std::floor((x - t2) / 3.0)) + 4;
            lines = std::max(4, std::min(6, lines));
        }
        best = best == 0 ? lines : std::min(best, lines);
    }
    return best;
}
