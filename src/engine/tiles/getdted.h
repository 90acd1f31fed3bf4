#pragma once

#include "engine/tiles/tile.h"

#include <optional>

/// What a DTED cell says of itself in its user header label.
struct DtedHeader {
    int columns = 0;        ///< lines of longitude, west to east
    int rows = 0;           ///< samples of each, south to north
    double spacingx = 0;    ///< degrees between columns
    double spacingy = 0;    ///< degrees between rows
    std::uint64_t data = 0; ///< offset of the first column's record
};

/// Reads the header of a DTED cell of any level and checks it against the file: each column's
/// record must be there. A cell spans one degree from its south-west corner unless its own spacing
/// makes it smaller. Checksums are not looked at.
///   Errors: empty when this is no DTED cell, or not all of one
///   Source: MIL-PRF-89020, user header label and data record
std::optional<DtedHeader> dtedheader(const ByteSource& file);

/// Resamples a DTED cell into the table. Heights are sign and magnitude; a void leaves the table as
/// it is.
///   place   of the cell's south-west sample
///   step    receives the number of table columns done
TileStatus getdted(const HeightTable& table, const ByteSource& file, const DtedHeader& header,
                   const TilePlace& place, const TileStep& step);

/// Height of a DTED word, or `voidheight`. A word that would be below -16383 m, deeper than any
/// sea, is taken as two's complement, which some producers write.
std::int16_t dtedheight(std::uint16_t word);
