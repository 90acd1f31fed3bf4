#include "base/paths.h"
#include "cli/command.h"
#include "cli/failure.h"
#include "cli/inputs.h"
#include "cli/output.h"
#include "cli/pictureinfo.h"
#include "terrain/mapfile.h"
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
    bool json = false;
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

KeyValues networkinfo(const NetworkTables& tables, const NetFile& file)
{
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
    return output;
}

KeyValues mapinfo()
{
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
    return output;
}

KeyValues fileinfo(const std::string& path)
{
    const FileKind kind = filekind(path);
    if (kind == FileKind::netfile) {
        NetworkTables tables = defaulttables();
        const NetFile file = readnetwork(path, tables);
        return networkinfo(tables, file);
    }
    if (kind == FileKind::mapfile) {
        openmap(path);
        return mapinfo();
    }
    return pictureinfo(path);
}

/// A stream has no name that tells its kind: its bytes do. What has a signature comes first.
KeyValues streaminfo(const std::string& content)
{
    const auto bytes = asbytes(content);
    NetworkTables tables = defaulttables();
    NetFile file;
    const bool isnet = parsenet(bytes, tables, file) == NetStatus::ok;
    if (isnet && !file.older)
        return networkinfo(tables, file);
    if (isoldermap(bytes) && ispicture(content))
        return streampictureinfo(content);
    if (isnet)
        return networkinfo(tables, file);
    if (parsemap(bytes, mapgrid) == MapStatus::ok)
        return mapinfo();
    throw Failure("standard input", "neither a network, a map nor a picture");
}

void runinfo(const InfoArguments& arguments)
{
    constexpr std::size_t mostbytes = std::size_t{1} << 32;
    prepare(arguments.options);
    const KeyValues output = arguments.file == standardstream
                                 ? streaminfo(readstandardinput(mostbytes))
                                 : fileinfo(arguments.file);
    printresult(output.text(arguments.json));
}
} // namespace

std::function<void()> setupinfo(CLI::App& parser)
{
    auto arguments = std::make_shared<InfoArguments>();
    parser.add_option("FILE", arguments->file, "A .net or .map file, or a picture")->required();
    addjson(parser, arguments->json);
    addoptions(parser, arguments->options);
    parser.footer("Prints key=value lines. Counted are the stations with a position, the systems\n"
                  "that a net gives a member, and the nets with members. Positions are\n"
                  "longitude,latitude in degrees; the size is the north-south extent in km.");
    return [arguments] { runinfo(*arguments); };
}
