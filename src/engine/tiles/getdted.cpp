#include "engine/tiles/getdted.h"

#include "engine/tiles/resample.h"

#include <array>
#include <charconv>
#include <string_view>

// Lengths of the labels in front of the data, bytes.
static constexpr std::uint64_t labelsize = 80;
static constexpr std::uint64_t headersize = 80 + 648 + 2700; // UHL, DSI, ACC
// A record: mark, block number and two counts; the heights; a checksum.
static constexpr std::uint64_t recordhead = 8;
static constexpr std::uint64_t recordtail = 4;
static constexpr std::byte recordmark{0xAA};
// Spacings are told in tenths of an arc second.
static constexpr int tenthsperdegree = 36000;

std::int16_t dtedheight(std::uint16_t word)
{
    constexpr std::uint16_t sign = 0x8000;
    constexpr std::uint16_t deepest = 0x3FFF;
    if (word == 0xFFFF || word == sign)
        return voidheight;
    const auto magnitude = static_cast<std::uint16_t>(word & ~sign);
    if (word == magnitude || magnitude > deepest)
        return static_cast<std::int16_t>(word);
    return static_cast<std::int16_t>(-magnitude);
}

// A number of digits at a fixed place; -1 where there is none.
static int number(std::string_view label, std::size_t at, std::size_t length)
{
    std::string_view text = label.substr(at, length);
    while (text.starts_with(' '))
        text.remove_prefix(1);
    int value = -1;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), value);
    return read.ec == std::errc() ? value : -1;
}

// Spacing in degrees along one axis. A spacing that is absent, or would carry the cell beyond its
// degree, yields to the cell's one degree.
static double spacing(int tenths, int count)
{
    const int intervals = count - 1;
    if (tenths <= 0 || tenths * intervals > tenthsperdegree)
        return 1.0 / intervals;
    return static_cast<double>(tenths) / tenthsperdegree;
}

static std::uint64_t recordsize(const DtedHeader& header)
{
    return recordhead + 2 * static_cast<std::uint64_t>(header.rows) + recordtail;
}

static std::uint64_t record(const DtedHeader& header, int column)
{
    return header.data + static_cast<std::uint64_t>(column) * recordsize(header);
}

// A file of exactly the size that its header gives is taken at its word. One that goes on behind
// the last record must show the mark of every record, or the counts are not those of the file.
static bool holdsrecords(const ByteSource& file, const DtedHeader& header)
{
    const std::uint64_t end = record(header, header.columns);
    if (file.size <= end)
        return file.size == end;
    for (int column = 0; column < header.columns; ++column) {
        std::array<std::byte, 1> mark{};
        if (!file.read(record(header, column), mark) || mark[0] != recordmark)
            return false;
    }
    return true;
}

std::optional<DtedHeader> dtedheader(const ByteSource& file)
{
    std::array<char, labelsize> bytes{};
    const std::string_view label(bytes.data(), bytes.size());
    std::uint64_t start = 0;
    // Cells copied from tapes have the tape's own labels in front.
    do {
        if (!file.read(start, std::as_writable_bytes(std::span(bytes))))
            return {};
        start += labelsize;
    } while (label.starts_with("VOL") || label.starts_with("HDR"));
    if (!label.starts_with("UHL"))
        return {};

    DtedHeader header;
    header.columns = number(label, 47, 4);
    header.rows = number(label, 51, 4);
    if (header.columns < 2 || header.rows < 2)
        return {};
    header.spacingx = spacing(number(label, 20, 4), header.columns);
    header.spacingy = spacing(number(label, 24, 4), header.rows);
    header.data = start - labelsize + headersize;
    if (!holdsrecords(file, header))
        return {};
    return header;
}

namespace
{
// Neighbouring columns of a cell, turned so that rows run along x: what one strip of the table
// needs. Cells store each column in one piece; a strip keeps the turned samples in the cache.
class Strip
{
public:
    static constexpr std::size_t most = 64; // columns

    Strip(const ByteSource& source, const DtedHeader& cell, int first, int last)
        : file(source), header(cell), firstrow(first),
          words(2 * static_cast<std::size_t>(last - first + 1)),
          heights(static_cast<std::size_t>(last - first + 1) * most)
    {
    }

    /// Takes as many of the points as the strip holds; their places within it come in `taken`.
    /// Returns false where the file cannot be read.
    bool take(std::span<const AxisPoint> points)
    {
        taken.clear();
        std::size_t used = 0;
        int newest = -1;
        for (const AxisPoint& point : points) {
            if (used + 2 > most || taken.size() == most)
                break;
            for (int column = std::max(point.below, newest + 1); column <= point.below + 1;
                 ++column) {
                if (!readcolumn(column, used++))
                    return false;
                newest = column;
            }
            const int behind = newest - point.below;
            taken.push_back({static_cast<int>(used) - 1 - behind, point.share});
        }
        return true;
    }

    std::span<const AxisPoint> points() const { return taken; }
    const std::int16_t* row(int number) const
    {
        return &heights[static_cast<std::size_t>(number - firstrow) * most];
    }

private:
    bool readcolumn(int column, std::size_t place)
    {
        const std::uint64_t offset =
            record(header, column) + recordhead + 2 * static_cast<std::uint64_t>(firstrow);
        if (!file.read(offset, words))
            return false;
        std::int16_t* target = heights.data() + place;
        for (std::size_t i = 0; i < words.size(); i += 2, target += most)
            *target =
                dtedheight(static_cast<std::uint16_t>(std::to_integer<unsigned>(words[i]) << 8 |
                                                      std::to_integer<unsigned>(words[i + 1])));
        return true;
    }

    const ByteSource& file;
    const DtedHeader& header;
    int firstrow;
    std::vector<std::byte> words;
    std::vector<std::int16_t> heights; // rows x `most`
    std::vector<AxisPoint> taken;
};
} // namespace

TileStatus getdted(const HeightTable& table, const ByteSource& file, const DtedHeader& header,
                   const TilePlace& place, const TileStep& step)
{
    const AxisCut columns = cutaxis(table.width, place.x, place.stepx, 0, header.columns - 1);
    const AxisCut rows = cutaxis(table.height, place.y, place.stepy, 0, header.rows - 1);
    if (columns.points.empty() || rows.points.empty())
        return TileStatus::ok;

    Strip strip(file, header, rows.points.front().below, rows.points.back().below + 1);
    std::size_t done = 0;
    while (done < columns.points.size()) {
        if (!strip.take(std::span(columns.points).subspan(done)))
            return TileStatus::unreadable;
        const std::span<const AxisPoint> points = strip.points();
        const int x = columns.first + static_cast<int>(done);
        int y = rows.first;
        for (const AxisPoint& row : rows.points)
            table.count(points.size(),
                        resamplerow(table.row(y++, x, points.size()), points, strip.row(row.below),
                                    strip.row(row.below + 1), row.share));
        for (std::size_t k = 0; k < points.size(); ++k)
            if (!step(static_cast<int>(++done)))
                return TileStatus::stopped;
    }
    return TileStatus::ok;
}
