#include "network/stationfile.h"

#include "base/numbers.h"
#include "base/textcodec.h"
#include "base/textlines.h"
#include "network/stationplan.h"
#include "network/tables.h"
#include "network/texttable.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <system_error>

namespace
{
/// Heights beyond these are none of the earth's surface, m.
constexpr double lowest_m = -500;
constexpr double highest_m = 9000;
constexpr std::size_t mostname = 100; // characters

struct ColumnNames {
    std::optional<std::size_t> StationColumns::*column;
    std::array<std::string_view, 9> names;
};

/// Small letters without accents, without a unit at the end.
constexpr std::array<ColumnNames, 5> columnnames{{
    {&StationColumns::name,
     {"name", "nom", "station", "label", "site", "libelle", "title", "titre", "etiquette"}},
    {&StationColumns::lon, {"lon", "long", "longitude", "lng", "x"}},
    {&StationColumns::lat, {"lat", "latitude", "y"}},
    {&StationColumns::elevation, {"elevation", "ele", "elev", "altitude", "alt", "z"}},
    {&StationColumns::enabled, {"enabled", "active", "actif", "activee"}},
}};

/// A column's name without its unit: "Longitude (°)" and "lon_deg" are the same as their first
/// word.
std::string plainname(const std::string& text)
{
    std::string name = foldedtext(toansi(text));
    name = trimmed(name.substr(0, name.find_first_of("([")));
    for (const std::string_view unit : {"_m", "_deg", "_dd", "_degrees", "_wgs84"})
        if (name.size() > unit.size() && name.ends_with(unit)) {
            name.resize(name.size() - unit.size());
            break;
        }
    return name;
}

std::string shortened(const std::string& text, std::size_t most)
{
    std::size_t end = 0;
    for (std::size_t characters = 0; end < text.size(); ++end)
        if ((text[end] & 0xC0) != 0x80 && ++characters > most)
            break;
    return text.substr(0, end);
}

/// The text as a whole as a number with a point or a comma.
std::optional<double> numberof(const std::string& field)
{
    std::string text = trimmed(field);
    if (text.ends_with("\xC2\xB0")) // degrees
        text.resize(text.size() - 2);
    if (text.find('.') == std::string::npos)
        std::ranges::replace(text, ',', '.');
    const char* first = text.data() + (text.starts_with('+') ? 1 : 0);
    const char* const last = text.data() + text.size();
    double value = 0;
    const auto [end, error] = std::from_chars(first, last, value);
    if (error != std::errc() || end != last || !std::isfinite(value))
        return {};
    return value;
}

std::string fieldof(const std::optional<std::size_t>& column, std::span<const std::string> fields)
{
    return column && *column < fields.size() ? fields[*column] : std::string();
}

bool isyes(const std::string& field)
{
    constexpr std::array<std::string_view, 7> no{"0", "false", "faux", "no", "non", "off", "n"};
    return std::ranges::find(no, foldedtext(toansi(trimmed(field)))) == no.end();
}

void readposition(StationRecord& record, const std::string& lontext, const std::string& lattext)
{
    const auto lon = numberof(lontext);
    const auto lat = numberof(lattext);
    if (lon && lat) {
        setposition(record, *lon, *lat);
        return;
    }
    const std::string& bad = lon ? lattext : lontext;
    record.detail = shortened(trimmed(bad), mostname);
    record.fault = record.detail.empty() ? StationFault::noposition : StationFault::nonumber;
}

std::string csvfield(const std::string& text)
{
    if (text.find_first_of(",;\t\"\r\n") == std::string::npos && trimmed(text) == text)
        return text;
    std::string field = "\"";
    for (const char c : text)
        field += c == '"' ? "\"\"" : std::string(1, c);
    return field + '"';
}

std::string csvline(std::span<const std::string> fields)
{
    std::string line;
    for (const std::string& field : fields)
        line += (line.empty() ? "" : ",") + csvfield(field);
    return line + '\n';
}

/// The record of a row of a table.
StationRecord takerow(const TextTable& table, const StationColumns& columns, std::size_t width)
{
    StationRecord record;
    if (table.openquote())
        record.fault = StationFault::openquote;
    else if (table.filled() > width)
        record.fault = StationFault::manyfields;
    else
        record = stationofrow(columns, table.fields());
    if (record.fault == StationFault::openquote || record.fault == StationFault::manyfields)
        record.name = recordname(fieldof(columns.name, table.fields()));
    record.row = table.line();
    return record;
}
} // namespace

void StationRecords::add(StationRecord record)
{
    const bool station = record.fault == StationFault::none;
    std::size_t& count = station ? usable : faulty;
    if (count++ < (station ? std::size_t{MAXUNIT} : mostfaulty))
        kept.push_back(std::move(record));
}

StationColumns stationcolumns(std::span<const std::string> names)
{
    StationColumns columns;
    for (std::size_t i = 0; i < names.size(); ++i) {
        const std::string name = plainname(names[i]);
        for (const ColumnNames& known : columnnames)
            if (!name.empty() && !(columns.*known.column) &&
                std::ranges::find(known.names, name) != known.names.end())
                columns.*known.column = i;
    }
    return columns;
}

void setposition(StationRecord& record, double lon, double lat)
{
    if (!(std::abs(lon) <= 360) || !(std::abs(lat) <= 90)) {
        record.fault = StationFault::outside;
        record.detail = generalnumber(lon) + " " + generalnumber(lat);
        return;
    }
    record.lon = lon > 180 ? lon - 360 : lon < -180 ? lon + 360 : lon;
    record.lat = lat;
    if (static_cast<float>(record.lon) == 0 && static_cast<float>(lat) == 0)
        record.fault = StationFault::zero;
}

void setelevation(StationRecord& record, double elevation)
{
    record.badheight = !(lowest_m <= elevation && elevation <= highest_m);
    if (!record.badheight)
        record.elevation = elevation;
}

std::string recordname(const std::string& text)
{
    std::string name = shortened(text, 2 * mostname);
    std::ranges::replace_if(
        name, [](char c) { return static_cast<unsigned char>(c) < ' ' || c == 0x7F; }, ' ');
    return shortened(trimmed(name), mostname);
}

StationRecord stationofrow(const StationColumns& columns, std::span<const std::string> fields)
{
    StationRecord record;
    record.name = recordname(fieldof(columns.name, fields));
    const std::string height = fieldof(columns.elevation, fields);
    if (const auto number = numberof(height))
        setelevation(record, *number);
    else
        record.badheight = !trimmed(height).empty();
    record.enabled = isyes(fieldof(columns.enabled, fields));
    readposition(record, fieldof(columns.lon, fields), fieldof(columns.lat, fields));
    return record;
}

bool readstationtable(std::span<const std::byte> bytes, StationRecords& records)
{
    const std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    for (const char separator : {',', ';', '\t', '|'}) {
        TextTable table(text, separator);
        if (!table.next())
            return false;
        const StationColumns columns = stationcolumns(table.fields());
        if (!columns.placed())
            continue;
        const std::size_t width = table.count();
        while (table.next())
            records.add(takerow(table, columns, width));
        return true;
    }
    return false;
}

std::span<const char* const> stationcolumnnames()
{
    static constexpr std::array names{"slot", "name", "lon", "lat", "elevation_m", "enabled"};
    return names;
}

std::vector<std::vector<std::string>> stationrows(const NetworkTables& tables)
{
    std::vector<std::vector<std::string>> rows;
    for (int slot = 1; slot <= MAXUNIT; ++slot) {
        const Unit& unit = tables.unit(slot);
        if (!isfree(unit))
            rows.push_back({std::to_string(slot), unit.name.text(), generalnumber(unit.lon),
                            generalnumber(unit.lat), generalnumber(unit.elevation),
                            unit.enabled != 0 ? "1" : "0"});
    }
    return rows;
}

std::string stationtable(const NetworkTables& tables)
{
    const auto names = stationcolumnnames();
    std::string text = csvline(std::vector<std::string>(names.begin(), names.end()));
    for (const auto& row : stationrows(tables))
        text += csvline(row);
    return text;
}
