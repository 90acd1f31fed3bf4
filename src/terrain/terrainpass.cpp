#include "base/bytes.h"
#include "base/hooks.h"
#include "base/operation.h"
#include "base/paths.h"
#include "engine/tiles/getterrain.h"
#include "terrain/extraction.h"
#include "terrain/jobs.h"
#include "terrain/pass.h"
#include "terrain/szdd.h"

#include <array>
#include <cmath>
#include <cstdlib>
#include <fmt/format.h>

static constexpr std::size_t terrainroot = 2; // its place in session.drvpath

// Folder and file of a tile. Tiles are named by the longitude of their east edge, counted westward.
static std::string terrainname(int lon, int lat)
{
    int west = -lon - 1;
    if (west > 179)
        west -= 360;
    if (west < -180)
        west += 360;
    const int number = std::abs(west);
    return fmt::format("m{:03}/{}{:03}{}{:02}.sd_", number, west >= 0 ? 'w' : 'e', number,
                       lat >= 0 ? 'n' : 's', std::abs(lat));
}

// Expands a tile and copies it into the table.
static TileRead readterrain(const std::string& folder, const std::string& name,
                            const TilePlace& place, TileTally& tally)
{
    std::array<std::int16_t, static_cast<std::size_t>(terrainside) * terrainside> tile{};
    if (!findfile(folder + name))
        return TileRead::missing;
    const auto content = expand(folder, name, sizeof tile);
    if (!content || content->size() != sizeof tile)
        return TileRead::damaged;
    ByteReader(asbytes(*content)).readblock(tile.data(), sizeof tile);
    getterrain(passtable(tally), tile, place);
    return TileRead::done;
}

bool getTERRAIN(BuildReport* report)
{
    constexpr double samplesperdegree = terrainside - 1;
    constexpr double margin = 0.01; // degrees beyond the frame that still call for a tile
    const PassFrame frame = passframe();
    const CellRange cells = cellrange(frame);
    beginop(terrainjob(cells.count));
    const std::string folder = sourceroot(terrainroot) + "terrain/";
    const double step = samplesperdegree;
    for (int lon = cells.west; frame.usable() && lon <= std::floor(frame.east + margin); ++lon)
        for (int lat = cells.south; lat <= 89 && lat <= std::floor(frame.north + margin); ++lat) {
            hooks.pumpevents();
            const std::string name = terrainname(lon, lat);
            const TilePlace place{frame.column(lon), frame.row(lat), step / frame.columns,
                                  step / frame.rows};
            readtile(
                {"TERRAIN", folder + name, folder + name, frame.share(lon, lat, 1, 1)},
                [&](TileTally& tally, std::string&) {
                    return readterrain(folder, name, place, tally);
                },
                report);
            if (opbusy == 0)
                return endpass();
            ++optiles;
            opstep(0);
        }
    return endpass();
}
