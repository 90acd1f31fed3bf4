#include "coverage/slowcoverage.h"

#include <cmath>

namespace
{
constexpr double radians = 0.017453292519943278;

long roundhalf(double value)
{
    return std::lrint(value);
}

double sminus(double v, double freq)
{
    if (freq < 30)
        return v < 9 ? (v - 1) * 6 - 3 : 48 + v;
    return v < 9 ? (v - 1) * 3 - 1.5 : 24 + v;
}
} // namespace

SlowCoverage slowcoverage(const NetworkTables& tables, const MapGrid& map, const CoverageOrder& o,
                          double x0, double y0)
{
    SlowCoverage out;
    const double W = map.width - 1, H = map.height - 1, S = double{map.record.mapsize};
    Link link;
    setlink(tables, o.centre, o.mobile, o.net, link);
    const double freq = link.record.freq;
    const double reach =
        double(roundhalf(std::hypot(H / 2 + std::abs(y0 - H / 2), W / 2 + std::abs(x0 - W / 2))));
    const double R = std::min(double{o.bounds.rmax}, reach * S / H);
    const double cells = R * H / S;
    const int N = int(roundhalf(std::max(2.0, std::min(160.0, cells))));
    const double d = cells / N;

    double lowm = 0, highm = 0;
    if (o.unit == LevelUnit::sunit) {
        lowm = sminus(double{o.levels.low}, freq);
        highm = o.rainbow ? sminus(double{o.levels.high}, freq) : lowm + (freq < 30 ? 3 : 1.5);
    } else {
        const int side = o.mobiletransmits ? o.centre : o.mobile;
        const auto system = tables.nets[std::size_t(o.net)].system[std::size_t(side)];
        lowm = double{o.levels.low} - double{tables.systems[system].threshold};
        highm = double{o.levels.high} - double{tables.systems[system].threshold};
    }

    std::vector<int> prev(std::size_t(N) + 2);
    double rings = 0, spacing = d * S / H * 1000;
    const int last =
        int(roundhalf((double{o.bounds.azmax} - double{o.bounds.azmin}) / double{o.bounds.step}));
    double az = double{o.bounds.azmin};
    const double half = double{o.bounds.step} / 2;
    for (int k = 0; k <= last; ++k, az += double{o.bounds.step}) {
        long p = roundhalf(az - double{o.antaz});
        p += p < 0 ? 360 : p > 359 ? -360 : 0;
        link.profile = Profile{};
        link.profile.elevations_m = {double{tables.units[std::size_t(o.centre)].elevation}};
        link.profile.spacing_m = spacing;
        int m = 0;
        for (int c = 1; c <= N; ++c) {
            const long col = roundhalf(c * (d * std::cos((az - 90) * radians)) + x0);
            const long row =
                map.height - 1 - roundhalf(c * (d * std::sin((az - 90) * radians)) + y0);
            if (col < 0 || col > map.width - 1 || row < 0 || row > map.height - 1)
                break;
            link.profile.elevations_m.push_back(map.at(int(col), int(row)));
            ++m;
        }
        if (m > 0)
            linkmargin(tables.nets[std::size_t(o.net)], false, 0, link);
        const double budget =
            double{o.pattern[std::size_t(p)]} + (o.mobiletransmits ? link.gain21 : link.gain12);
        const double lx = d * std::cos((az - 90 - half) * radians);
        const double ly = d * std::sin((az - 90 - half) * radians);
        const double rx = d * std::cos((az - 90 + half) * radians);
        const double ry = d * std::sin((az - 90 + half) * radians);
        const double near = std::max(1.0, std::min(m - 1.0, double{o.bounds.rmin} / d / S * H));
        int laststate = 0;
        for (int c = 1; c <= m; ++c) {
            const double s = budget - link.losses[std::size_t(c)];
            const int state = o.curve && s > lowm ? 1 : 0;
            if (c > near) {
                SlowSector sector{
                    k, c, {}, 255, state != laststate, k > 0 && state != prev[std::size_t(c)]};
                const double a = c - 0.5, b = c + 0.5;
                const auto at = [&](double r, double x, double y) {
                    return PicturePoint{int(roundhalf(r * x + x0)), int(roundhalf(r * y + y0))};
                };
                sector.quad = {at(a, lx, ly), at(b, lx, ly), at(b, rx, ry), at(a, rx, ry)};
                if (o.surface && o.rainbow && o.unit == LevelUnit::sunit) {
                    const int v = sunits(float(s - highm), float(freq));
                    sector.fill = 0;
                    if (v != 0) {
                        const double low = double{o.levels.low}, high = double{o.levels.high};
                        sector.fill = int(
                            std::clamp<long>(roundhalf((v - low) / (high - low) * 10 + 1), 0, 11));
                        rings += c;
                    }
                } else if (o.surface && o.rainbow) {
                    sector.fill = int(
                        std::clamp(std::floor((s - lowm) / (highm - lowm) * 10 + 1), 0.0, 11.0));
                    rings += sector.fill > 0 ? c : 0;
                } else if (o.surface && s >= lowm && s < highm) {
                    sector.fill = 12;
                    rings += c;
                }
                if (sector.fill != 255 || sector.across || sector.along)
                    out.sectors.push_back(sector);
            }
            prev[std::size_t(c)] = state;
            laststate = state;
        }
        for (int c = m + 1; c <= N - 1; ++c)
            prev[std::size_t(c)] = 0;
    }
    out.area_km2 = double{o.bounds.step} * rings * radians * (spacing / 1000) * (spacing / 1000);
    return out;
}

std::vector<std::pair<int, int>> slowviewshed(const MapGrid& map, const ViewOrder& o, double x0,
                                              double y0, double ground_m)
{
    std::vector<std::pair<int, int>> seen;
    const double W = map.width - 1, H = map.height - 1, S = double{map.record.mapsize};
    const double sensor = double{o.sensorh} + ground_m;
    const double reach =
        double(roundhalf(std::hypot(H / 2 + std::abs(y0 - H / 2), W / 2 + std::abs(x0 - W / 2))));
    double range = std::max(0.1, std::min(double{o.bounds.rmax}, reach * S / H));
    double near = std::max(0.1, std::min(range, double{o.bounds.rmin}));
    double gate = 0;
    if (o.radar) {
        near = o.radar->gatesize_km;
        range = near * o.radar->count();
        gate = 1.0 / 1000 / o.radar->gatesize_km;
    }
    const long n = roundhalf(std::max(2.0, range * H / S));
    const long first = roundhalf(std::max(1.0, near * H / S));
    const double m = range / double(n) * 1000;
    const int last =
        int(roundhalf((double{o.bounds.azmax} - double{o.bounds.azmin}) / double{o.bounds.step}));
    double az = double{o.bounds.azmin};
    for (int k = 0; k <= last; ++k, az += double{o.bounds.step}) {
        double horizon = -1e99;
        for (int c = 1; c <= n; ++c) {
            const long col = roundhalf(c * std::cos((az - 90) * radians) + x0);
            const long row = map.height - 1 - roundhalf(c * std::sin((az - 90) * radians) + y0);
            if (col < 0 || col > map.width - 1 || row < 0 || row > map.height - 1)
                break;
            const double dist = m * c;
            const double drop = dist * dist / 12750000;
            const double rel = map.at(int(col), int(row)) - drop - sensor;
            horizon = std::max(horizon, rel / dist);
            const double target =
                o.terrainfollow ? rel + double{o.targeth} : double{o.targeth} - drop - sensor;
            if (target / dist < horizon || c < first)
                continue;
            if (o.radar) {
                const long i = roundhalf(dist * gate);
                if (i > o.radar->count() || target < double{o.radar->gates[std::size_t(i)].lower} ||
                    target > double{o.radar->gates[std::size_t(i)].upper})
                    continue;
            }
            seen.emplace_back(k, c);
        }
    }
    return seen;
}
