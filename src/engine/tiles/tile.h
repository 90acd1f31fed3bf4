#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <limits>
#include <span>

/// What tiles did to a table.
struct TileTally {
    std::int64_t pixels = 0; ///< of the table, that lie in the tile
    std::int64_t voids = 0;  ///< of these, left as they were for want of a height
};

/// The map's table as the elevation kernels fill it: metres, width x height samples, x fastest and
/// eastward, row 0 at the south edge.
struct HeightTable {
    std::span<std::int16_t> samples;
    int width = 0;
    int height = 0;
    TileTally* tally = nullptr; ///< counts, where somebody wants to know

    std::span<std::int16_t> row(int y, int first, std::size_t count) const
    {
        return samples.subspan(static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                                   static_cast<std::size_t>(first),
                               count);
    }
    void count(std::size_t pixels, std::size_t voids) const
    {
        if (tally == nullptr)
            return;
        tally->pixels += static_cast<std::int64_t>(pixels);
        tally->voids += static_cast<std::int64_t>(voids);
    }
};

/// Where the samples of a tile lie in the table. Table column p stands at the tile's column
/// (p - x) stepx, rows likewise. All four carry fractions, so that no tile is shifted to a whole
/// table pixel.
struct TilePlace {
    double x = 0;     ///< table column of the tile's first column of samples, any value
    double y = 0;     ///< table row of the tile's first row of samples
    double stepx = 0; ///< tile columns per table column, above 0
    double stepy =
        0; ///< tile rows per table row; below 0 for tiles whose first row is the north one
};

/// A sample without a height, as the readers hand it to the resampling.
inline constexpr std::int16_t voidheight = std::numeric_limits<std::int16_t>::min();

/// True for the values that elevation files of all kinds use for "no data".
constexpr bool isvoid(int height)
{
    return height == -32767 || height == -32768 || height == -9999;
}

/// Positioned reads of a file of outside bytes.
struct ByteSource {
    std::uint64_t size = 0;
    /// Fills the whole target from this offset; false where that is not possible.
    std::function<bool(std::uint64_t offset, std::span<std::byte> target)> read;
};

/// Bytes in memory as a source. The bytes must outlive it.
ByteSource bytesource(std::span<const std::byte> bytes);

/// How the reading of a tile ended.
enum class TileStatus {
    ok,
    unreadable, ///< not a tile, or less than its header says; what was read until then stays
    stopped     ///< the step function asked for it
};

/// Called by the kernels once per line of the table that they finish, with that line's number;
/// false stops them.
using TileStep = std::function<bool(int line)>;
