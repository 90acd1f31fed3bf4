#include "base/hooks.h"
#include "base/operation.h"
#include "base/paths.h"
#include "engine/tiles/getdted.h"
#include "terrain/extraction.h"
#include "terrain/jobs.h"
#include "terrain/outsidefile.h"
#include "terrain/pass.h"

#include <array>
#include <cstdlib>
#include <fmt/format.h>

static constexpr std::size_t dtedroot = 0; // its place in session.drvpath

using DtedNames = std::array<std::string, 5>;

// The names under which a cell may stand, in the order in which they are tried: the finest level
// first, then the long form of level 1, its short form, and level 0.
static DtedNames dtednames(const std::string& root, int lon, int lat)
{
    const int wrapped = wrapdegrees(lon);
    const std::string base =
        fmt::format("{}DTED/{}{:03}", root, wrapped < 0 ? 'W' : 'E', std::abs(wrapped));
    const std::string cell = fmt::format("{}{:02}", lat >= 0 ? 'N' : 'S', std::abs(lat));
    const std::string longform = base + "0000/" + cell + "0000";
    const std::string shortform = base + "/" + cell;
    return {longform + ".DT2", shortform + ".DT2", longform + ".DT1", shortform + ".DT1",
            shortform + ".DT0"};
}

// Resamples the cell in one file. False where it cannot be read.
static bool readdted(const std::string& path, const PassFrame& frame, int lon, int lat,
                     TileTally& tally)
{
    const auto file = openbytes(path);
    const auto header = file ? dtedheader(*file) : std::nullopt;
    if (!header)
        return false;
    const TilePlace place{frame.column(lon), frame.row(lat), 1 / (frame.columns * header->spacingx),
                          1 / (frame.rows * header->spacingy)};
    const TileStatus status = getdted(passtable(tally), *file, *header, place,
                                      [](int column) { return opstep(column) != 0; });
    return status != TileStatus::unreadable;
}

// Reads the first of the names that is there and whole. `name` receives the path of the file that
// was read, or of a damaged one.
static TileRead readcell(const DtedNames& names, const PassFrame& frame, int lon, int lat,
                         TileTally& tally, std::string& name)
{
    TileRead result = TileRead::missing;
    for (const std::string& path : names) {
        const auto found = findfile(path);
        if (!found)
            continue;
        tally = {};
        name = *found;
        if (readdted(*found, frame, lon, lat, tally))
            return TileRead::done;
        result = TileRead::damaged;
    }
    return result;
}

bool getDTED(BuildReport* report)
{
    const PassFrame frame = passframe();
    const CellRange cells = cellrange(frame);
    beginop(dtedjob(cells.count, mapgrid));
    const std::string root = sourceroot(dtedroot);
    for (int lon = cells.west; lon <= cells.east; ++lon)
        for (int lat = cells.south; lat <= cells.north; ++lat) {
            hooks.pumpevents();
            const DtedNames names = dtednames(root, lon, lat);
            const std::string& last = names.back();
            // The name without its level, and the levels.
            const WantedTile tile{"DTED", last, last.substr(0, last.size() - 1) + "2, .DT1 or .DT0",
                                  frame.share(lon, lat, 1, 1)};
            readtile(
                tile,
                [&](TileTally& tally, std::string& name) {
                    return readcell(names, frame, lon, lat, tally, name);
                },
                report);
            if (opbusy == 0)
                return endpass();
            ++optiles;
        }
    return endpass();
}
