#include "engine/tiles/gettopo30.h"

#include "engine/tiles/resample.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <cmath>
#include <map>
#include <string>
#include <utility>

// More than any raster of this kind has; keeps the arithmetic on sizes far from its limits.
static constexpr int mostsamples = 1000000;
static constexpr int samplesperdegree = 120;

using HeaderWords = std::map<std::string, std::string_view, std::less<>>;

static std::string_view nextword(std::string_view& text)
{
    constexpr std::string_view blanks = " \t\r\n";
    text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
    const std::string_view word = text.substr(0, text.find_first_of(blanks));
    text.remove_prefix(word.size());
    return word;
}

// One pair of key and value a line; keys in capitals.
static HeaderWords headerwords(std::string_view text)
{
    HeaderWords words;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
        std::string_view line = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        std::string key(nextword(line));
        std::transform(key.begin(), key.end(), key.begin(),
                       [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
        const std::string_view value = nextword(line);
        if (!value.empty())
            words.emplace(std::move(key), value);
    }
    return words;
}

// Takes the number of a key where there is one. False: it stands there and cannot be read.
template <typename T> static bool take(const HeaderWords& words, std::string_view key, T& value)
{
    const auto found = words.find(key);
    if (found == words.end())
        return true;
    std::string_view text = found->second;
    if (text.starts_with('+'))
        text.remove_prefix(1);
    const auto read = std::from_chars(text.data(), text.data() + text.size(), value);
    return read.ec == std::errc();
}

static void takeposition(const HeaderWords& words, std::string_view key,
                         std::optional<double>& position)
{
    double value = 0;
    if (words.contains(key) && take(words, key, value) && std::isfinite(value))
        position = value;
}

// Counts, and the bytes that rows of such counts take.
static bool takelayout(const HeaderWords& words, TopoHeader& header)
{
    int bits = 16;
    int bands = 1;
    if (!take(words, "NCOLS", header.columns) || !take(words, "NROWS", header.rows) ||
        !take(words, "NBITS", bits) || !take(words, "NBANDS", bands) ||
        !take(words, "SKIPBYTES", header.skip) || !take(words, "NODATA", header.nodata))
        return false;
    if (header.columns < 1 || header.columns > mostsamples || header.rows < 1 ||
        header.rows > mostsamples || bits != 16 || bands != 1)
        return false;
    const std::uint64_t least = 2 * static_cast<std::uint64_t>(header.columns);
    header.rowbytes = least;
    return take(words, "BANDROWBYTES", header.rowbytes) &&
           take(words, "TOTALROWBYTES", header.rowbytes) && header.rowbytes >= least &&
           header.rowbytes <= 2 * static_cast<std::uint64_t>(mostsamples);
}

// The spacing along one axis; the samples must not reach beyond the tile.
static bool takespacing(const HeaderWords& words, std::string_view key, int count, double extent,
                        double& spacing)
{
    spacing = extent / count;
    return take(words, key, spacing) && spacing > 0 && spacing * (count - 0.5) < extent;
}

std::optional<TopoHeader> topoheader(std::string_view text, const TopoExtent& extent,
                                     std::uint64_t filesize)
{
    const HeaderWords words = headerwords(text);
    TopoHeader header;
    header.columns = static_cast<int>(extent.width * samplesperdegree);
    header.rows = static_cast<int>(extent.height * samplesperdegree);
    if (!takelayout(words, header) ||
        !takespacing(words, "XDIM", header.columns, extent.width, header.spacingx) ||
        !takespacing(words, "YDIM", header.rows, extent.height, header.spacingy))
        return {};
    const auto order = words.find("BYTEORDER");
    if (order != words.end())
        header.bigendian = order->second.starts_with('M') || order->second.starts_with('m');
    takeposition(words, "ULXMAP", header.west);
    takeposition(words, "ULYMAP", header.north);

    const std::uint64_t content = header.rowbytes * static_cast<std::uint64_t>(header.rows);
    if (header.skip > filesize || filesize - header.skip != content)
        return {};
    return header;
}

bool readtoporow(const ByteSource& file, const TopoHeader& header, int row, int first,
                 std::span<std::int16_t> heights)
{
    const std::uint64_t offset = header.skip + static_cast<std::uint64_t>(row) * header.rowbytes +
                                 2 * static_cast<std::uint64_t>(first);
    if (!file.read(offset, std::as_writable_bytes(heights)))
        return false;
    for (std::int16_t& height : heights) {
        const auto bytes = std::as_bytes(std::span(&height, 1));
        const auto low = std::to_integer<unsigned>(bytes[header.bigendian ? 1 : 0]);
        const auto high = std::to_integer<unsigned>(bytes[header.bigendian ? 0 : 1]);
        const auto value = static_cast<std::int16_t>(high << 8 | low);
        height = isvoid(value) || value == header.nodata ? voidheight : value;
    }
    return true;
}

namespace
{
// The two rows between which the kernel works. Going south, the lower row of one step is mostly the
// upper row of the next.
class RowPair
{
public:
    RowPair(const TopoRows& reader, int firstcolumn, std::size_t count)
        : readrow(reader), first(firstcolumn), north(count), south(count)
    {
    }

    /// Makes rows `row` and `row` + 1 of the tile the present ones.
    bool take(int row)
    {
        if (row == present)
            return true;
        if (row == present + 1)
            std::swap(north, south);
        else if (!readrow(row, first, north))
            return false;
        present = row;
        return readrow(row + 1, first, south);
    }
    const std::int16_t* upper() const { return north.data(); }
    const std::int16_t* lower() const { return south.data(); }

private:
    static constexpr int none = -1000;

    const TopoRows& readrow;
    int first;
    int present = none;
    std::vector<std::int16_t> north;
    std::vector<std::int16_t> south;
};
} // namespace

TileStatus gettopo30(const HeightTable& table, const TopoHeader& header, const TopoRows& readrow,
                     const TilePlace& place, const TileStep& step)
{
    constexpr double half = 0.5; // of a cell, around the centres of the outermost ones
    AxisCut columns = cutaxis(table.width, place.x, place.stepx, -half, header.columns - half);
    const AxisCut rows = cutaxis(table.height, place.y, place.stepy, -half, header.rows - half);
    if (columns.points.empty() || rows.points.empty())
        return TileStatus::ok;

    const int firstcolumn = columns.points.front().below;
    const int lastcolumn = columns.points.back().below + 1;
    for (AxisPoint& point : columns.points)
        point.below -= firstcolumn;
    RowPair pair(readrow, firstcolumn, static_cast<std::size_t>(lastcolumn - firstcolumn + 1));
    for (std::size_t k = rows.points.size(); k-- > 0;) {
        const AxisPoint& row = rows.points[k];
        const int y = rows.first + static_cast<int>(k);
        if (!pair.take(row.below))
            return TileStatus::unreadable;
        // The tile's rows go south: its row `below` is the northern one of the two.
        const std::size_t count = columns.points.size();
        table.count(count, resamplerow(table.row(y, columns.first, count), columns.points,
                                       pair.upper(), pair.lower(), row.share));
        if (!step(table.height - 1 - y))
            return TileStatus::stopped;
    }
    return TileStatus::ok;
}
