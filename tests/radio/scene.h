#pragma once

#include "network/tables.h"
#include "terrain/mapgrid.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <random>
#include <string>

/// Made-up terrain and networks for the tests of the radio room.
namespace scene
{
/// Cells per degree: a power of two, so that whole and half cells are exact in single precision.
inline constexpr float cellsperdegree = 64;
inline constexpr float west = 8;
inline constexpr float south = 44;

/// A map whose cells lie 1/64 degree apart, with the given ground everywhere.
inline MapGrid flatmap(int width, int height, std::int16_t ground = 0, float size_km = 100)
{
    MapGrid map;
    map.width = width;
    map.height = height;
    map.samples.assign(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), ground);
    map.record.mapsize = size_km;
    const float east = west + static_cast<float>(width - 1) / cellsperdegree;
    const float north = south + static_cast<float>(height - 1) / cellsperdegree;
    map.maplon = {west, east, east, west};
    map.maplat = {north, north, south, south};
    return map;
}

/// Hills of several hundred metres with some roughness.
inline MapGrid hillymap(int width, int height, unsigned seed, float size_km = 100)
{
    MapGrid map = flatmap(width, height, 0, size_km);
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> phase(0, 6.28);
    const double p = phase(random);
    const double q = phase(random);
    std::uniform_int_distribution<int> rough(0, 25);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            const double hills = 400 + 220 * std::sin(x * 0.11 + p) * std::cos(y * 0.07 + q) +
                                 120 * std::sin(y * 0.031);
            map.at(x, y) = static_cast<std::int16_t>(static_cast<int>(hills) + rough(random));
        }
    return map;
}

/// Puts a station at a position in cells from the south-west corner.
inline void place(Unit& unit, float column, float row, float elevation = 0)
{
    unit.lon = west + column / cellsperdegree;
    unit.lat = south + row / cellsperdegree;
    unit.elevation = elevation;
}

inline void join(Net& net, int unit, int role = 0, int system = 1)
{
    net.member[static_cast<std::size_t>(unit)] = static_cast<std::uint8_t>(memberbit + role);
    net.system[static_cast<std::size_t>(unit)] = static_cast<std::uint8_t>(system);
}

/// The ground under a station, as the station dialogs store it.
inline float groundunder(const MapGrid& map, const Unit& unit)
{
    const int x = static_cast<int>(std::nearbyint((unit.lon - west) * cellsperdegree));
    const int y = static_cast<int>(std::nearbyint((unit.lat - south) * cellsperdegree));
    return map.at(std::clamp(x, 0, map.upperx()), std::clamp(y, 0, map.uppery()));
}

/// A network with everything that an evaluation looks at drawn by lot, a few stations outside the
/// map, a few disabled, all topologies, roles, and statistical modes.
inline NetworkTables randomnetwork(const MapGrid& map, unsigned seed)
{
    NetworkTables tables;
    std::mt19937 random(seed);
    const auto below = [&](int count) {
        return static_cast<int>(std::uniform_int_distribution<int>(0, count - 1)(random));
    };
    const auto between = [&](float low, float high) {
        return std::uniform_real_distribution<float>(low, high)(random);
    };
    for (std::size_t i = 1; i <= MAXUNIT; ++i) {
        Unit& unit = tables.units[i];
        place(unit, between(-1, static_cast<float>(map.width)),
              between(-1, static_cast<float>(map.height)));
        unit.elevation = groundunder(map, unit) + between(0, 9);
        unit.enabled = below(10) == 0 ? 0 : -1;
    }
    for (std::size_t i = 1; i <= MAXSYSTEM; ++i)
        tables.systems[i] = RadioSystem{between(0, 60),  between(-115, -60), between(0, 4),
                                        between(-2, 12), between(1, 40),     {}};
    for (std::size_t n = 1; n <= MAXNET; ++n) {
        Net& net = tables.nets[n];
        const int share = below(10);
        for (int unit = 1; unit <= MAXUNIT; ++unit) {
            if (below(10) < share)
                join(net, unit, below(3), 1 + below(MAXSYSTEM));
            if (below(8) == 0)
                tables.antheights[n][static_cast<std::size_t>(unit)] = between(1, 80);
        }
        net.fmin = between(20, 900);
        net.fmax = net.fmin + between(0, 40);
        net.polarisation = static_cast<std::int16_t>(below(2));
        net.climate = static_cast<std::int16_t>(1 + below(7));
        net.statmode = static_cast<std::int16_t>(below(4) + 100 * below(2));
        net.ptime = between(10, 90);
        net.maxretrans = static_cast<std::int16_t>(below(6) == 0 ? 41 : below(6));
        net.topology = static_cast<std::int16_t>(below(3) + 256 * (below(4) > 0 ? 1 : 0));
    }
    return tables;
}
} // namespace scene
