#pragma once

#include <cstdint>
#include <string>
#include <vector>

/// Bits of the sources that a map is built from.
namespace source
{
inline constexpr unsigned dted = 1;
inline constexpr unsigned gtopo30 = 2;
inline constexpr unsigned terrain = 4;
} // namespace source

/// A tile that a build could not take as a whole.
struct TileLack {
    enum class Kind { missing, damaged, voids };
    Kind kind;
    std::string name; ///< the path looked for, or found
    double share;     ///< of the map that the tile would cover; voids: of the tile. 0 to 1
};

/// What a build found. Each pass adds to it.
struct BuildReport {
    std::vector<TileLack> lacks;
    std::int64_t filled = 0; ///< samples of the map that got a height, once for each tile

    /// Tiles that are missing or damaged.
    int lacking() const;
};

/// Tiles that are not there are passed over without a question.
extern bool ignoremissing;

/// Each pass resamples one elevation source into the process's map, whose samples are allocated,
/// over what earlier passes left there, and ends with the map's statistics. The source's folder is
/// `session.drvpath`. A tile that is missing or cannot be read is asked about, unless
/// `ignoremissing`. True unless the user stopped; then what was read until then stays.
///   report   receives what the tiles lacked; null: nobody wants to know
bool getTERRAIN(BuildReport* report = nullptr);
bool getGTOPO30(BuildReport* report = nullptr);
bool getDTED(BuildReport* report = nullptr);
