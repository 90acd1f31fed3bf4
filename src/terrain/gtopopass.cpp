#include "base/hooks.h"
#include "base/operation.h"
#include "base/paths.h"
#include "engine/tiles/gettopo30.h"
#include "terrain/extraction.h"
#include "terrain/jobs.h"
#include "terrain/outsidefile.h"
#include "terrain/pass.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <fmt/format.h>
#include <map>
#include <tuple>

namespace
{
constexpr std::size_t gtoporoot = 1;       // its place in session.drvpath
constexpr int bandheight = 50;             // degrees
constexpr int southernband = -60;          // its top; it ends at the pole
constexpr std::size_t headerlimit = 65536; // bytes of a .hdr, far more than any has

/// North-west corner of a tile, whole degrees; the longitude in -180 .. 179.
struct Corner {
    int left;
    int top;
    bool operator<(const Corner& other) const
    {
        return std::tie(left, top) < std::tie(other.left, other.top);
    }
};

int tilewidth(int top)
{
    return top > southernband ? 40 : 60;
}

TopoExtent tileextent(int top)
{
    return {static_cast<double>(tilewidth(top)), top > southernband ? bandheight : 30.0};
}

int tiletop(double lat)
{
    return 90 - static_cast<int>(std::floor((90 - lat) / bandheight)) * bandheight;
}

int tileleft(double lon, int top)
{
    const int width = tilewidth(top);
    return static_cast<int>(std::floor((lon + 180) / width)) * width - 180;
}

std::string gtoponame(const Corner& corner)
{
    return fmt::format("{}{:03}{}{:02}", corner.left <= 0 ? 'W' : 'E', std::abs(corner.left),
                       corner.top < 0 ? 'S' : 'N', std::abs(corner.top));
}

struct TopoTile {
    ByteSource file;
    TopoHeader header;
    double west;  ///< centre of the first sample, degrees
    double north; ///< likewise
};

/// Where a header places the tile's first sample along one axis. A place that would carry the
/// samples out of the tile is not believed: then they begin at the tile's own corner.
double samplestart(std::optional<double> told, double corner, double spacing, int count,
                   double extent, double direction)
{
    const double own = corner + direction * spacing / 2;
    if (!told)
        return own;
    const double before = (*told - own) * direction;
    const double behind = before + spacing * count - extent;
    return before > -spacing / 2 && behind < spacing / 2 ? *told : own;
}

std::optional<TopoTile> opentopo(const std::string& path, const Corner& corner)
{
    const auto found = findfile(path);
    if (!found)
        return {};
    const auto file = openbytes(*found);
    if (!file)
        return {};
    const auto beside = findfile(path.substr(0, path.size() - 3) + "hdr");
    const std::string text = beside ? readfile(*beside, headerlimit).value_or("") : "";
    const TopoExtent extent = tileextent(corner.top);
    const auto header = topoheader(text, extent, file->size);
    if (!header)
        return {};
    return TopoTile{
        *file, *header,
        samplestart(header->west, corner.left, header->spacingx, header->columns, extent.width, 1),
        samplestart(header->north, corner.top, header->spacingy, header->rows, extent.height, -1)};
}

/// The tiles under one root. Those that the frame touches are opened once and stay open for the
/// pass: a tile's rim is read from its neighbours.
class TopoTiles
{
public:
    explicit TopoTiles(std::string folder) : root(std::move(folder)) {}

    std::string path(const Corner& corner) const
    {
        const std::string name = gtoponame(corner);
        return root + name + "/" + name + ".dem";
    }

    /// The tile of a corner; null where it is missing.
    ///   again   looks for a file that was missing before
    const TopoTile* tile(const Corner& corner, bool again)
    {
        const auto known = tiles.find(corner);
        if (known != tiles.end() && (known->second || !again))
            return known->second ? &*known->second : nullptr;
        auto& opened = tiles[corner];
        opened = opentopo(path(corner), corner);
        return opened ? &*opened : nullptr;
    }

    /// A piece of a row of a tile and its rim, as the kernel asks for it.
    bool readrow(const TopoTile& tile, int row, int first, std::span<std::int16_t> heights)
    {
        const int end = first + static_cast<int>(heights.size());
        int from = std::max(first, 0);
        int to = std::min(end, tile.header.columns);
        if (row < 0 || row >= tile.header.rows)
            to = from = first; // all of it lies on the rim
        const auto part = [&](int a, int b) {
            return heights.subspan(static_cast<std::size_t>(a - first),
                                   static_cast<std::size_t>(b - a));
        };
        readrim(tile, row, first, part(first, from));
        readrim(tile, row, to, part(to, end));
        return from == to || readtoporow(tile.file, tile.header, row, from, part(from, to));
    }

private:
    void readrim(const TopoTile& tile, int row, int first, std::span<std::int16_t> heights)
    {
        const double lat = tile.north - row * tile.header.spacingy;
        for (std::int16_t& height : heights)
            height = nearest(tile.west + first++ * tile.header.spacingx, lat);
    }

    /// The sample nearest to a position, from whatever tile holds it.
    std::int16_t nearest(double lon, double lat)
    {
        if (lat >= 90 || lat <= -90)
            return voidheight;
        lon -= std::floor((lon + 180) / 360) * 360;
        const int top = tiletop(lat);
        const TopoTile* const there = tile({tileleft(lon, top), top}, false);
        if (there == nullptr)
            return voidheight;
        const double column = std::nearbyint((lon - there->west) / there->header.spacingx);
        const double row = std::nearbyint((there->north - lat) / there->header.spacingy);
        if (column < 0 || column >= there->header.columns || row < 0 || row >= there->header.rows)
            return voidheight;
        std::int16_t height = voidheight;
        if (!readtoporow(there->file, there->header, static_cast<int>(row),
                         static_cast<int>(column), std::span(&height, 1)))
            return voidheight;
        return height;
    }

    std::string root;
    std::map<Corner, std::optional<TopoTile>> tiles;
};

/// Resamples one tile.
///   left   its west edge, not wrapped
TileRead readtopo(TopoTiles& tiles, const PassFrame& frame, int left, const Corner& corner,
                  TileTally& tally)
{
    const TopoTile* const tile = tiles.tile(corner, true);
    if (tile == nullptr)
        return findfile(tiles.path(corner)) ? TileRead::damaged : TileRead::missing;
    const TopoHeader& header = tile->header;
    const TilePlace place{frame.column(tile->west + (left - corner.left)), frame.row(tile->north),
                          1 / (frame.columns * header.spacingx),
                          -1 / (frame.rows * header.spacingy)};
    const auto readrow = [&](int row, int first, std::span<std::int16_t> heights) {
        return tiles.readrow(*tile, row, first, heights);
    };
    const TileStatus status = gettopo30(passtable(tally), header, readrow, place,
                                        [](int row) { return opstep(row) != 0; });
    return status == TileStatus::unreadable ? TileRead::damaged : TileRead::done;
}

/// One band of tiles, west to east.
void readband(TopoTiles& tiles, const PassFrame& frame, int top, BuildReport* report)
{
    for (int left = tileleft(frame.west, top); left < frame.east; left += tilewidth(top)) {
        hooks.pumpevents();
        const Corner corner{wrapdegrees(left), top};
        const TopoExtent extent = tileextent(top);
        readtile(
            {"GTOPO30", tiles.path(corner), tiles.path(corner),
             frame.share(left, top - extent.height, extent.width, extent.height)},
            [&](TileTally& tally, std::string&) {
                return readtopo(tiles, frame, left, corner, tally);
            },
            report);
        hooks.pumpevents();
        if (opbusy == 0)
            return;
    }
}
} // namespace

bool getGTOPO30(BuildReport* report)
{
    const PassFrame frame = passframe();
    beginop(gtopojob(mapgrid));
    TopoTiles tiles(sourceroot(gtoporoot));
    if (frame.usable())
        for (int top = tiletop(std::min(frame.north, 90.0));
             top > std::max(frame.south, -90.0) && opbusy != 0; top -= bandheight)
            readband(tiles, frame, top, report);
    return endpass();
}
