#include "terrain/mapproperties.h"

#include "base/numbers.h"
#include "coordinates/positiontexts.h"

#include <cmath>

MapRecord mapedit;

double mapwidth_km(const MapRecord& record, int width, int height)
{
    return static_cast<double>(record.mapsize) * width / height;
}

MapCorners mapcorners(const MapRecord& record, int width, int height)
{
    const double size_km = smax(static_cast<double>(record.mapsize), 1.0);
    const double lon = static_cast<double>(record.maplon0);
    const double lat = static_cast<double>(record.maplat0);
    const double span = size_km / earthradius_km / degree;
    const double halfheight = span * 0.5;
    const double halfwidth = span / height * width / std::cos(lat * degree) * 0.5;

    MapCorners corners;
    corners.lon[0] = corners.lon[3] = static_cast<float>(lon - halfwidth);
    corners.lon[1] = corners.lon[2] = static_cast<float>(lon + halfwidth);
    corners.lat[0] = corners.lat[1] = static_cast<float>(lat + halfheight);
    corners.lat[2] = corners.lat[3] = static_cast<float>(lat - halfheight);
    return corners;
}

std::string cornerstext(const MapCorners& corners)
{
    struct Block {
        const char* title;
        std::size_t corner;
    };
    static constexpr std::array<Block, 4> blocks{{{"Supérieur gauche", 0},
                                                  {"Supérieur droit", 1},
                                                  {"Inférieur gauche", 3},
                                                  {"Inférieur droit", 2}}};
    std::string text;
    for (const Block& block : blocks) {
        float lon = corners.lon[block.corner];
        float lat = corners.lat[block.corner];
        if (!text.empty())
            text += "\n\n";
        text.append(block.title).append("\n").append(dmslon(lon)).append("\n").append(dmslat(lat));
    }
    return text;
}
