#include "cli/command.h"
#include "cli/failure.h"
#include "cli/inputs.h"
#include "cli/output.h"
#include "cli/pictureinfo.h"
#include "terrain/mapgrid.h"

#include <algorithm>
#include <array>
#include <fmt/format.h>
#include <memory>
#include <set>
#include <string>

namespace
{
struct InfoArguments {
    std::string file;
    CommonOptions options;
};

/// What the slots of a network are used for: a slot is never free, but a station may have no
/// position, a net no members, and a system no member of a net.
struct UseCounts {
    int stations = 0;
    int systems = 0;
    int nets = 0;
};

UseCounts countused(const NetworkTables& tables)
{
    UseCounts counts;
    std::set<int> systems;
    for (std::size_t unit = 1; unit <= MAXUNIT; ++unit)
        counts.stations += tables.units[unit].placed() ? 1 : 0;
    for (std::size_t n = 1; n <= MAXNET; ++n) {
        bool used = false;
        for (int unit = 1; unit <= MAXUNIT; ++unit) {
            if (tables.nets[n].ismember(unit)) {
                used = true;
                systems.insert(tables.nets[n].systemof(unit));
            }
        }
        counts.nets += used ? 1 : 0;
    }
    counts.systems = static_cast<int>(systems.size());
    return counts;
}

std::string networkinfo(const std::string& path)
{
    NetworkTables tables = defaulttables();
    const NetFile file = readnetwork(path, tables);
    const UseCounts counts = countused(tables);
    KeyValues output;
    output.add("kind", "network");
    output.add("format", file.older ? "older" : "2000");
    output.add("stations", counts.stations);
    output.add("systems", counts.systems);
    output.add("nets", counts.nets);
    output.add("map", file.mapname);
    output.add("pictures", static_cast<int>(file.pictures.size()));
    for (std::size_t i = 0; i < file.pictures.size(); ++i)
        output.add(fmt::format("picture{}", i + 1), file.pictures[i]);
    return output.text();
}

std::string mapinfo(const std::string& path)
{
    openmap(path);
    const MapRecord& record = mapgrid.record;
    KeyValues output;
    output.add("kind", "map");
    output.add("W", mapgrid.width);
    output.add("H", mapgrid.height);
    output.add("hmin", record.hmin);
    output.add("hmax", record.hmax);
    output.add("hmoy", record.hmoy);
    output.add("centre", cell(record.maplon0) + "," + cell(record.maplat0));
    output.add("size", record.mapsize);
    const std::array<const char*, 4> names{"northwest", "northeast", "southeast", "southwest"};
    for (std::size_t i = 0; i < names.size(); ++i)
        output.add(names[i], cell(mapgrid.maplon[i]) + "," + cell(mapgrid.maplat[i]));
    return output.text();
}

void runinfo(const InfoArguments& arguments)
{
    prepare(arguments.options);
    switch (filekind(arguments.file)) {
    case FileKind::netfile:
        printresult(networkinfo(arguments.file));
        break;
    case FileKind::mapfile:
        printresult(mapinfo(arguments.file));
        break;
    case FileKind::other:
        printresult(pictureinfo(arguments.file));
        break;
    }
}
} // namespace

std::function<void()> setupinfo(CLI::App& parser)
{
    auto arguments = std::make_shared<InfoArguments>();
    parser.add_option("FILE", arguments->file, "A .net or .map file, or a picture")->required();
    addoptions(parser, arguments->options);
    parser.footer("Prints key=value lines. Counted are the stations with a position, the systems\n"
                  "that a net gives a member, and the nets with members. Positions are\n"
                  "longitude,latitude in degrees; the size is the north-south extent in km.");
    return [arguments] { runinfo(*arguments); };
}
