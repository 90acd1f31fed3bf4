#include "terrain/mapfile.h"

#include "base/busy.h"
#include "base/bytes.h"
#include "base/hooks.h"
#include "base/numbers.h"
#include "base/operation.h"
#include "base/paths.h"
#include "base/session.h"
#include "terrain/jobs.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <optional>

/// First bytes of the current format.
static constexpr float signature = 5000;
static constexpr std::size_t recordsize = 50;
static constexpr std::size_t framesize = 34;
/// Samples of a map in the older format, on each side.
static constexpr int olderside = 513;
/// Five numbers behind the older format's record that mean nothing any more.
static constexpr std::size_t olderunused = 20;

/// The record's fields in the order of the file.
template <typename Record, typename Visit> static void eachfield(Record& record, Visit visit)
{
    visit(record.maplon0);
    visit(record.maplat0);
    visit(record.mapsize);
    visit(record.Mapmode);
    visit(record.con);
    visit(record.bri);
    visit(record.minx);
    visit(record.maxx);
    visit(record.light);
    visit(record.c1);
    visit(record.c2);
    visit(record.hmin);
    visit(record.hmax);
    visit(record.hmoy);
    visit(record.sources);
    visit(record.sourceletter);
}

static std::optional<MapRecord> readrecord(ByteReader& reader)
{
    if (reader.left() < recordsize)
        return std::nullopt;
    MapRecord record;
    eachfield(record, [&reader](auto& field) { reader.read(field); });
    return record;
}

static bool readframe(ByteReader& reader, MapGrid& map)
{
    if (reader.left() < framesize)
        return false;
    return reader.read(map.maplon) && reader.read(map.maplat) && reader.read(map.cities);
}

static bool holdssamples(const ByteReader& reader, std::int32_t width, std::int32_t height)
{
    const std::uint64_t samples =
        static_cast<std::uint64_t>(width) * static_cast<std::uint64_t>(height);
    return samples <= reader.left() / sizeof(std::int16_t);
}

static MapStatus parsecurrent(ByteReader& reader, std::span<const std::byte> bytes, MapGrid& map)
{
    std::int32_t width = 0;
    std::int32_t height = 0;
    if (!reader.read(width) || !reader.read(height))
        return MapStatus::truncated;
    if (width < 1 || height < 1)
        return MapStatus::badformat;
    const std::optional<MapRecord> record = readrecord(reader);
    if (!record)
        return MapStatus::truncated;
    map.record = *record;
    if (!readframe(reader, map) || !holdssamples(reader, width, height))
        return MapStatus::truncated;
    const std::size_t count = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    map.samples.resize(count);
    std::memcpy(map.samples.data(), bytes.data() + reader.position(), count * sizeof(std::int16_t));
    map.width = width;
    map.height = height;
    return MapStatus::ok;
}

static std::int16_t wholeheight(float height)
{
    if (std::isnan(height))
        return 0;
    using Limits = std::numeric_limits<std::int16_t>;
    return static_cast<std::int16_t>(
        std::clamp<float>(std::nearbyint(height), Limits::min(), Limits::max()));
}

/// Rounds the older format's singles, which begin at `heights`, one column after the other.
static bool convertheights(const std::byte* heights, MapGrid& map,
                           const std::function<bool(int)>& step)
{
    for (int x = 0; x < olderside; ++x) {
        for (int y = 0; y < olderside; ++y) {
            float height = 0;
            const std::size_t cell = static_cast<std::size_t>(y) * olderside + std::size_t(x);
            std::memcpy(&height, heights + cell * sizeof height, sizeof height);
            map.at(x, y) = wholeheight(height);
        }
        if (step && !step(x))
            return false;
    }
    return true;
}

static MapStatus parseolder(ByteReader& reader, std::span<const std::byte> bytes, MapGrid& map,
                            const std::function<bool(int)>& step)
{
    const std::optional<MapRecord> record = readrecord(reader);
    if (!record)
        return MapStatus::truncated;
    const bool plausible = record->maplon0 > -181 && record->maplon0 < 181;
    if (!plausible)
        return MapStatus::badformat;
    map.record = *record;
    std::string text;
    const bool complete = reader.skip(olderunused) && reader.readstring(text) &&
                          reader.readstring(text) && reader.readstring(text);
    if (!complete)
        return MapStatus::truncated;
    map.record.maplon0 = -map.record.maplon0; // it counted west as positive
    if (map.record.maplon0 >= 180)
        map.record.maplon0 -= 360;
    map.record.sourceletter = text.empty() ? ' ' : text.front();
    constexpr std::size_t heightbytes = sizeof(float) * olderside * olderside;
    if (reader.left() < heightbytes)
        return MapStatus::truncated;
    allocatemap(map, olderside, olderside);
    mapframe(map);
    return convertheights(bytes.data() + reader.position(), map, step) ? MapStatus::ok
                                                                       : MapStatus::stopped;
}

bool isoldermap(std::span<const std::byte> bytes)
{
    ByteReader reader(bytes);
    float first = 0;
    return !reader.read(first) || first != signature;
}

MapStatus parsemap(std::span<const std::byte> bytes, MapGrid& map,
                   const std::function<bool(int)>& step)
{
    ByteReader reader(bytes);
    if (isoldermap(bytes))
        return parseolder(reader, bytes, map, step);
    reader.skip(sizeof signature);
    return parsecurrent(reader, bytes, map);
}

std::string mapheader(const MapGrid& map)
{
    ByteWriter writer;
    writer.write(signature);
    writer.write(std::int32_t{map.width});
    writer.write(std::int32_t{map.height});
    eachfield(map.record, [&writer](const auto& field) { writer.write(field); });
    writer.write(map.maplon);
    writer.write(map.maplat);
    writer.write(map.cities);
    return writer.data();
}

static MapStatus laststatus = MapStatus::ok;

MapStatus lastmapstatus()
{
    return laststatus;
}

/// A map moves with its network: the path as stored, else its name beside the network, else in the
/// program's folder.
static std::optional<std::string> searchmap(const std::string& path)
{
    if (auto found = findfile(path))
        return found;
    const std::string name = nameof(path);
    if (auto found = findfile(pathof(session.netfile) + name))
        return found;
    return findprogramfile(name);
}

static MapStatus readoldermap(std::span<const std::byte> bytes)
{
    beginop(openmapjob());
    const MapStatus status = parsemap(bytes, mapgrid, [](int column) {
        if (column == 0)
            hooks.setlabel2("Conversion au nouveau format de carte...");
        return opstep(column) != 0;
    });
    if (status == MapStatus::badformat)
        telluser("Mauvais format de carte");
    if (status == MapStatus::ok) {
        const std::string picture = mapname.substr(0, mapname.size() - 3) + "bmp";
        hooks.openpicture(picture, 1);
        hooks.placepicture(picture, mapgrid.maplon.data(), mapgrid.maplat.data());
    }
    return status;
}

static MapStatus readmap(const std::string& path)
{
    const std::optional<std::string> found = searchmap(path);
    if (!found)
        return MapStatus::unreadable;
    mapname = lowercase(*found);
    const std::optional<std::string> content = readfile(*found);
    if (!content)
        return MapStatus::unreadable;
    const std::span<const std::byte> bytes = asbytes(*content);
    return isoldermap(bytes) ? readoldermap(bytes) : parsemap(bytes, mapgrid);
}

bool loadmap(const std::string& path)
{
    const std::string wanted = lowercase(unquoted(path));
    laststatus = MapStatus::unreadable;
    if (!wanted.ends_with("map"))
        return false;
    laststatus = readmap(wanted);
    const bool success = laststatus == MapStatus::ok;
    hooks.mapchanged();
    endop(); // also where no operation began: the status line then tells of a stop
    mapdirty = !success;
    return success;
}

bool savemap(const std::string& path, std::string* why)
{
    const Busy busy;
    const std::string header = mapheader(mapgrid);
    const auto samples = std::as_bytes(std::span(mapgrid.samples));
    const std::string_view parts[] = {
        header, {reinterpret_cast<const char*>(samples.data()), samples.size()}};
    const bool written = writefile(targetpath(path), parts, why);
    if (!written)
        return false;
    mapname = path;
    mapdirty = false;
    hooks.setlabel2(nameof(path) + " a été enregistrée");
    return true;
}
