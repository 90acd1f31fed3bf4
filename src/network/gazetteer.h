#pragma once

#include "base/textcodec.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

struct Unit;

/// A town of the gazetteer, cities.dat.
struct Town {
    FixedText<22> name;     ///< what a line of the list has room for
    float lon = 0, lat = 0; ///< degrees, east positive
};

/// The gazetteer in the order of its file.
struct Gazetteer {
    std::vector<Town> towns;
    std::size_t lines = 0; ///< behind the header, also those that are no town
};

/// A place as it is picked from its line in the list: to the second, its name cut.
struct PickedTown {
    std::string name;       ///< UTF-8, 20 characters with the blanks of the line
    float lon = 0, lat = 0; ///< degrees, east positive
};

/// Name of the place that was applied last in the list of towns; empty: none was. Its position is
/// then the centre of `mapedit`.
extern std::string cityname;

/// Towns of the gazetteer's text: a header, then lines of colour, latitude, longitude (west
/// positive) and name. A line without exactly three commas, or without numbers, is no town.
Gazetteer parsegazetteer(std::string_view text);

/// Reads cities.dat in the program's folder; nothing when it is missing.
Gazetteer readgazetteer();

/// A town's line in the list: its name in 22 characters, longitude and latitude.
std::string townline(const Town& town);

/// The place that such a line tells; nothing for a text that is too short to be one.
std::optional<PickedTown> picktown(const std::string& line);

/// Numbers of the towns whose name contains a text, whatever the case and the accents of either.
std::vector<std::uint32_t> findtowns(const Gazetteer& gazetteer, const std::string& text);

/// A station's line in the gazetteer's file, with its end.
std::string gazetteerline(const Unit& unit);

/// Adds a station to cities.dat in the user's folder, which takes over what the shipped one has.
/// False when it could not be written.
bool appendtown(const Unit& unit);
