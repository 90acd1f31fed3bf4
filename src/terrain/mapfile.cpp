#include "terrain/mapfile.h"

#include "base/bytes.h"
#include "base/numbers.h"

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

/// Samples of a map that may lack some of them: an extent that a damaged header claims must not
/// take the memory of the machine.
static constexpr std::uint64_t mostincomplete = std::uint64_t{1} << 26;
static std::uint64_t samplecount(std::int32_t width, std::int32_t height)
{
    return static_cast<std::uint64_t>(width) * static_cast<std::uint64_t>(height);
}

static MapStatus parsecurrent(ByteReader& reader, std::span<const std::byte> bytes, MapGrid& map)
{
    std::int32_t width = 0;
    std::int32_t height = 0;
    if (!reader.read(width) || !reader.read(height))
        return MapStatus::truncated;
    if (width < 1 || height < 1)
        return MapStatus::badformat;
    const std::uint64_t count = samplecount(width, height);
    if (count > smax(mostincomplete, std::uint64_t{reader.left()} / sizeof(std::int16_t)))
        return MapStatus::truncated;
    allocatemap(map, width, height);
    mapframe(map);
    const std::optional<MapRecord> record = readrecord(reader);
    if (!record)
        return MapStatus::incomplete;
    map.record = *record;
    if (!readframe(reader, map))
        return MapStatus::incomplete;
    const std::uint64_t held = smin(count, std::uint64_t{reader.left()} / sizeof(std::int16_t));
    std::memcpy(map.samples.data(), bytes.data() + reader.position(),
                static_cast<std::size_t>(held) * sizeof(std::int16_t));
    return held == count ? MapStatus::ok : MapStatus::incomplete;
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
    std::string text;
    const bool complete = reader.skip(olderunused) && reader.readstring(text) &&
                          reader.readstring(text) && reader.readstring(text);
    constexpr std::size_t heightbytes = sizeof(float) * olderside * olderside;
    if (!complete || reader.left() < heightbytes)
        return MapStatus::truncated;
    map.record = *record;
    map.record.maplon0 = -map.record.maplon0; // it counted west as positive
    if (map.record.maplon0 >= 180)
        map.record.maplon0 -= 360;
    map.record.sourceletter = text.empty() ? ' ' : text.front();
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

std::uint64_t mapbytes(std::span<const std::byte> header)
{
    constexpr std::uint64_t longesttext = 2 + 32767;
    constexpr std::uint64_t olderbytes = recordsize + olderunused + 3 * longesttext +
                                         std::uint64_t{sizeof(float)} * olderside * olderside;
    if (isoldermap(header))
        return olderbytes;
    ByteReader reader(header);
    reader.skip(sizeof signature);
    std::int32_t width = 0;
    std::int32_t height = 0;
    if (!reader.read(width) || !reader.read(height) || width < 1 || height < 1)
        return 0;
    return mapheadersize + samplecount(width, height) * sizeof(std::int16_t);
}
