#pragma once

/// Bits of the sources that a map is built from.
namespace source
{
inline constexpr unsigned dted = 1;
inline constexpr unsigned gtopo30 = 2;
inline constexpr unsigned terrain = 4;
} // namespace source

/// Tiles that are not there are passed over without a question.
extern bool ignoremissing;

/// Each pass resamples one elevation source into the process's map, whose samples are allocated,
/// over what earlier passes left there, and ends with the map's statistics. The source's folder is
/// `session.drvpath`. A tile that is missing or cannot be read is asked about, unless
/// `ignoremissing`. True unless the user stopped; then what was read until then stays.
bool getTERRAIN();
bool getGTOPO30();
bool getDTED();
