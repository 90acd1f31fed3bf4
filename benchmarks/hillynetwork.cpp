#include "hillynetwork.h"

#include "network/moveunit.h"
#include "terrain/mapgrid.h"

#include <cmath>
#include <random>

void makehills()
{
    constexpr int side = 2000;
    allocatemap(mapgrid, side, side);
    mapgrid.record.mapsize = 200;
    mapgrid.record.maplon0 = 6;
    mapgrid.record.maplat0 = 46;
    mapframe(mapgrid);
    std::mt19937 random(1);
    std::uniform_int_distribution<int> rough(0, 20);
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x)
            mapgrid.at(x, y) = static_cast<std::int16_t>(
                600 + 350 * std::sin(x * 0.013) * std::cos(y * 0.017) + rough(random));
}

float lonat(double share)
{
    return static_cast<float>(double{mapgrid.maplon[0]} +
                              share * (double{mapgrid.maplon[2]} - double{mapgrid.maplon[0]}));
}

float latat(double share)
{
    return static_cast<float>(double{mapgrid.maplat[2]} +
                              share * (double{mapgrid.maplat[0]} - double{mapgrid.maplat[2]}));
}

void makenetwork(int nets, Topology kind)
{
    network = defaulttables();
    for (int unit = 1; unit <= MAXUNIT; ++unit) {
        Unit& station = network.units[static_cast<std::size_t>(unit)];
        station.name.assign("Station " + std::to_string(unit));
        const int row = (unit - 1) / 7;
        const int column = (unit - 1) % 7;
        placeunit(unit, lonat((column + 0.5) / 7.2), latat((row + 0.5) / 8.2));
    }
    for (int n = 1; n <= MAXNET; ++n) {
        Net& net = network.nets[static_cast<std::size_t>(n)];
        net.topology = static_cast<std::int16_t>(static_cast<int>(kind) + visiblebit);
        net.maxretrans = 20;
        net.fmin = net.fmax = static_cast<float>(100 + 10 * n);
        net.member.fill(n <= nets ? memberbit : std::uint8_t{0});
        net.system.fill(1);
    }
    network.systems[1].height = 20;
}

OpenPicture& makepicture(int side)
{
    openpictures.clear();
    openpictures.push_back(std::make_unique<OpenPicture>());
    OpenPicture& picture = *openpictures.back();
    picture.data.Pictype = pictype::map;
    picture.data.lon = mapgrid.maplon;
    picture.data.lat = mapgrid.maplat;
    resizepicture(picture, side, side);
    return picture;
}
