#include "cli/inputs.h"

#include "base/hooks.h"
#include "base/numbers.h"
#include "base/paths.h"
#include "base/session.h"
#include "cli/failure.h"
#include "cli/output.h"
#include "terrain/mapfile.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <fmt/format.h>
#include <optional>
#include <system_error>

namespace
{
/// Beyond so many degrees there is nothing at all.
constexpr double mostdegrees = 3600;
/// Four times as much as the largest map that a command builds.
constexpr std::size_t mostmapbytes = std::size_t{1} << 32;

const char* reason(MapStatus status)
{
    switch (status) {
    case MapStatus::truncated:
    case MapStatus::incomplete:
        return "the map is incomplete";
    case MapStatus::toolarge:
        return "too large for a map";
    case MapStatus::badformat:
        return "not a map, or a damaged one";
    case MapStatus::stopped:
        return "the conversion was stopped";
    default:
        return "cannot be read";
    }
}

const char* reason(NetStatus status)
{
    switch (status) {
    case NetStatus::truncated:
        return "not a network, or an incomplete one";
    case NetStatus::mapfile:
        return "a map under the name of a network";
    case NetStatus::toolarge:
        return "too large for a network";
    case NetStatus::foreign:
        return "not a network";
    default:
        return "cannot be read";
    }
}

/// The network's own map. Its name is a path on the machine that saved it, or one beside the
/// network; the map is also looked for there by its bare name.
void openownmap(const std::string& path, const std::string& name)
{
    if (trimmed(name).empty())
        throw Failure(path, "names no map; give one with --map");
    openmap(besidenetwork(name));
}

/// Slot by number or name, found by one of the tables' procedures.
int slot(const char* kind, const std::string& text,
         int (*find)(const NetworkTables&, const std::string&))
{
    const int found = find(network, text);
    if (found == 0) {
        throw Failure(fmt::format("{} {}", kind, text),
                      "no slot has this number, and not exactly one has this name");
    }
    return found;
}
} // namespace

FileKind filekind(const std::string& path)
{
    const std::string name = lowercase(unquoted(path));
    if (name.ends_with("net"))
        return FileKind::netfile;
    if (name.ends_with("map"))
        return FileKind::mapfile;
    return FileKind::other;
}

std::string readstandardinput(std::size_t limit)
{
    std::string content;
    std::array<char, 65536> part{};
    for (std::size_t got = 0; (got = std::fread(part.data(), 1, part.size(), stdin)) > 0;) {
        content.append(part.data(), got);
        if (content.size() > limit)
            throw Failure("standard input", "holds too much");
    }
    return content;
}

/// The map that standard input holds.
static void readmapstream(std::string_view content)
{
    const MapStatus status = parsemap(asbytes(content), mapgrid);
    if (status != MapStatus::ok)
        throw Failure("standard input", reason(status));
    mapname = "stdin.map";
    hooks.mapchanged();
}

void openmap(const std::string& path)
{
    if (path == standardstream) {
        readmapstream(readstandardinput(mostmapbytes));
        return;
    }
    if (filekind(path) != FileKind::mapfile)
        throw Failure(path, "not a .map file");
    mapname.clear();
    if (loadmap(path))
        return;
    // A map that was found but can't be read has left its name.
    if (mapname.empty() && lastmapstatus() == MapStatus::unreadable)
        throw Failure(path, "map not found");
    throw Failure(mapname.empty() ? path : mapname, reason(lastmapstatus()));
}

static NetFile parsenetwork(const std::string& name, std::string_view content,
                            NetworkTables& tables)
{
    NetFile file;
    const NetStatus status = parsenet(asbytes(content), tables, file);
    if (status != NetStatus::ok)
        throw Failure(name, reason(status));
    return file;
}

NetFile readnetwork(const std::string& path, NetworkTables& tables)
{
    if (path == standardstream)
        return parsenetwork("standard input", readstandardinput(mostnetbytes), tables);
    if (filekind(path) != FileKind::netfile)
        throw Failure(path, "not a .net file");
    const std::optional<std::string> found = findfile(unquoted(path));
    if (!found)
        throw Failure(path, "network not found");
    if (const NetStatus kind = probenet(*found); kind != NetStatus::ok)
        throw Failure(path, reason(kind));
    const std::optional<std::string> content = readfile(*found);
    if (!content)
        throw Failure(path, "cannot be read");
    NetFile file = parsenetwork(path, *content, tables);
    session.netfile = *found;
    return file;
}

void opennetwork(const std::string& path, const NetworkOptions& options)
{
    if (path == standardstream && options.map == standardstream)
        throw UsageError("only one of NET and --map can be standard input");
    const NetFile file = readnetwork(path, network);
    if (options.map.empty())
        openownmap(path, file.mapname);
    else
        openmap(options.map);
}

int stationslot(const std::string& text)
{
    return slot("station", text, findunit);
}

int netslot(const std::string& text)
{
    return trimmed(text) == "0" ? 0 : slot("net", text, findnet);
}

float coordinate(const std::string& name, const std::string& text)
{
    const std::string digits = text.starts_with('+') ? text.substr(1) : text;
    double value = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (error != std::errc() || end != digits.data() + digits.size() ||
        !(std::abs(value) <= mostdegrees))
        throw UsageError(fmt::format("{}: {} is no coordinate in degrees", name, text));
    return static_cast<float>(value);
}

static float within(float most, const std::string& name, const std::string& text)
{
    const float value = coordinate(name, text);
    if (!(std::abs(value) <= most))
        throw UsageError(fmt::format("{}: {} lies outside the globe", name, text));
    return value;
}

float latitude(const std::string& name, const std::string& text)
{
    return within(90, name, text);
}

float longitude(const std::string& name, const std::string& text)
{
    return within(720, name, text);
}
