#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

struct NetworkTables;

/// Why a record of a file is no station.
enum class StationFault {
    none,
    notpoint,   ///< a line or an area
    noposition, ///< a coordinate is missing
    nonumber,   ///< a coordinate is no number
    outside,    ///< a coordinate lies outside the globe
    zero,       ///< 0, 0 is what a station has that was placed nowhere
    manyfields, ///< more fields than the header names, as by a decimal comma between commas
    openquote   ///< a quote that nothing closes
};

/// A record of another program's file: a station, unless it has a fault.
struct StationRecord {
    std::size_t row = 0;             ///< line of a table, or number of a feature, from 1
    std::string name;                ///< UTF-8, at most 100 characters of it
    double lon = 0, lat = 0;         ///< degrees, east and north positive, within 180 and 90
    std::optional<double> elevation; ///< m
    bool badheight = false;          ///< it has a height that is none: no number, or absurd
    bool enabled = true;
    StationFault fault = StationFault::none;
    std::string detail; ///< the text at fault, UTF-8
};

/// The records of a file in their order. More stations than there are slots are counted and not
/// kept, and so are faulty records beyond some hundreds.
struct StationRecords {
    static constexpr std::size_t mostfaulty = 200; ///< of those kept

    std::vector<StationRecord> kept;
    std::size_t usable = 0; ///< stations, also those not kept
    std::size_t faulty = 0; ///< records that are none, also those not kept

    void add(StationRecord record);
};

/// Where a table of stations has what, by the names of its columns.
struct StationColumns {
    std::optional<std::size_t> name, lon, lat, elevation, enabled;

    bool placed() const { return lon && lat; }
};

/// Recognises columns by their names, UTF-8: French or English, whatever case and accents.
StationColumns stationcolumns(std::span<const std::string> names);

/// The station of a table's row, fields in UTF-8. Numbers have a point or a comma.
StationRecord stationofrow(const StationColumns& columns, std::span<const std::string> fields);

/// Puts a position into a record, degrees as a file has them: longitudes may count to 360. Enters
/// the fault of one that is none.
void setposition(StationRecord& record, double lon, double lat);
/// Puts a height into a record, m, if it is one of the earth's surface.
void setelevation(StationRecord& record, double elevation);
/// The name of a record: without control characters, and not longer than it is kept.
std::string recordname(const std::string& text);

/// Reads a CSV: a header line, and a row for each station. The separator is a comma, a semicolon, a
/// tab or a bar; the text UTF-8 or Windows-1252. False for a text whose header names no longitude
/// and latitude.
bool readstationtable(std::span<const std::byte> bytes, StationRecords& records);

/// Names of the columns in which stations go out.
std::span<const char* const> stationcolumnnames();
/// The placed stations as texts of these columns.
std::vector<std::vector<std::string>> stationrows(const NetworkTables& tables);
/// The same as a CSV, UTF-8.
std::string stationtable(const NetworkTables& tables);
