#include "cli/command.h"

#include <array>

std::span<const Command> commands()
{
    static constexpr auto table = std::to_array<Command>({
        {"info", "Say what a network, a map or a picture holds", setupinfo},
        {"evaluate", "Evaluate all links: signal quality and reachability of each pair",
         setupevaluate},
        {"lines", "Evaluate all links: line class of each pair", setuplines},
        {"link", "Study one link: profile, model, margin and texts", setuplink},
        {"losses", "Path loss along one link", setuplosses},
        {"export", "Write the profile of one link to a text file", setupexport},
        {"where", "Text forms of a position", setupwhere},
        {"parse", "Position of a locator or of an MGRS reference", setupparse},
        {"elevation", "Elevations of a map under positions", setupelevation},
        {"build", "Build a map from elevation sources", setupbuild},
        {"import", "Turn rasters of elevations into DTED cells", setupimport},
        {"render", "Draw a map into a picture", setuprender},
        {"draw", "Draw a network over its map into a picture", setupdraw},
        {"coverage", "Paint where a mobile can work with a station", setupcoverage},
        {"viewshed", "Paint what can be seen from a station", setupviewshed},
        {"report", "Write the report on all nets", setupreport},
        {"haat", "Write the report on an antenna's height above average terrain", setuphaat},
        {"stations", "Take stations from other programs, or give them stations and links",
         setupstations},
    });
    return table;
}
