#pragma once

#include "engine/tiles/tile.h"

#include <functional>
#include <optional>
#include <string_view>

/// What the .hdr beside a GTOPO30 tile says; the defaults are those of the public distribution.
struct TopoHeader {
    int columns = 4800;
    int rows = 6000; ///< the north row first
    bool bigendian = true;
    std::uint64_t skip = 0;      ///< bytes before the first row
    std::uint64_t rowbytes = 0;  ///< bytes from row to row
    double spacingx = 0;         ///< degrees between columns
    double spacingy = 0;         ///< degrees between rows
    std::optional<double> west;  ///< centre of the first column, degrees
    std::optional<double> north; ///< centre of the first row, degrees
    int nodata = -9999;
};

/// Extent of a tile of the public distribution, degrees.
struct TopoExtent {
    double width;
    double height;
};

/// Reads the text of a .hdr. What it does not say is taken from the public distribution: an empty
/// text gives its tile, with 120 samples to the degree.
///   extent   of the tile: its samples may cover less, not more
///   Errors: empty for counts, sizes or a form that cannot be, or that are not those of a file of
///           this size
///   Source: the GTOPO30 documentation, section "Header file"
std::optional<TopoHeader> topoheader(std::string_view text, const TopoExtent& extent,
                                     std::uint64_t filesize);

/// Reads a piece of a row of a tile. Samples without data come as `voidheight`.
///   row, first   0 to rows - 1, 0 to columns - the length of the target
/// False where the file cannot be read there.
bool readtoporow(const ByteSource& file, const TopoHeader& header, int row, int first,
                 std::span<std::int16_t> heights);

/// Gives the kernel a piece of a row. Rows -1 and `rows`, columns -1 and `columns` are the rim: the
/// nearest samples of the neighbouring tiles, or `voidheight`. False stops with "unreadable".
using TopoRows = std::function<bool(int row, int first, std::span<std::int16_t> heights)>;

/// Resamples a GTOPO30 tile into the table. Samples are the centres of their cells; the tile covers
/// half a cell around the outermost ones, where the rim joins it to its neighbours. Only the rows
/// and columns that the table needs are asked for.
///   place   of the tile's first sample, in the north-west; stepy below 0
///   step    receives table rows counted from the north edge
TileStatus gettopo30(const HeightTable& table, const TopoHeader& header, const TopoRows& readrow,
                     const TilePlace& place, const TileStep& step);
