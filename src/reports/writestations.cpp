#include "reports/writestations.h"

#include "base/numbers.h"
#include "base/paths.h"
#include "gis/gis.h"
#include "network/stationfile.h"
#include "network/stationplan.h"
#include "reports/stationkml.h"

#include <array>
#include <utility>

namespace
{
VectorPoint pointof(const Unit& unit)
{
    return {double{unit.lon}, double{unit.lat}, double{unit.elevation}};
}

/// Stations as waypoints, by the names that the format has for their data.
VectorLayer waypoints(const NetworkTables& tables)
{
    VectorLayer layer{"waypoints", {{"ele", FieldType::real}, {"name", FieldType::text}}, {}};
    for (int slot = 1; slot <= MAXUNIT; ++slot) {
        const Unit& unit = tables.unit(slot);
        if (!isfree(unit))
            layer.features.push_back({VectorKind::points,
                                      {{pointof(unit)}},
                                      false,
                                      {generalnumber(unit.elevation), unit.name.text()}});
    }
    return layer;
}

/// Stations and links in one layer: what one of them lacks stays empty.
VectorLayer stationsandlinks(const NetworkTables& tables, std::span<const StationLink> links)
{
    using enum FieldType;
    VectorLayer layer{"stations",
                      {{"slot", integer},
                       {"name", text},
                       {"elevation_m", real},
                       {"enabled", integer},
                       {"a", integer},
                       {"b", integer},
                       {"net", text},
                       {"class", integer},
                       {"distance_km", real},
                       {"margin_db", real}},
                      {}};
    for (int slot = 1; slot <= MAXUNIT; ++slot) {
        const Unit& unit = tables.unit(slot);
        if (!isfree(unit))
            layer.features.push_back(
                {VectorKind::points,
                 {{pointof(unit)}},
                 true,
                 {std::to_string(slot), unit.name.text(), generalnumber(unit.elevation),
                  unit.enabled != 0 ? "1" : "0"}});
    }
    for (const StationLink& link : links) {
        const Unit& a = tables.unit(link.a);
        const Unit& b = tables.unit(link.b);
        layer.features.push_back(
            {VectorKind::lines,
             {{pointof(a), pointof(b)}},
             true,
             {"", a.name.text() + " - " + b.name.text(), "", "", std::to_string(link.a),
              std::to_string(link.b), tables.net(link.net).name.text(),
              std::to_string(link.lineclass), formatnumber("0.000", link.distance_km),
              formatnumber("0.0", link.margin_db)}});
    }
    return layer;
}

std::optional<std::string> vectorfile(const VectorLayer& layer, VectorFormat format,
                                      std::string& why)
{
    if (const GisLibrary* const gis = gislibrary())
        return gis->vectorbytes({layer}, format, why);
    why = nogislibrary;
    return {};
}
} // namespace

std::optional<StationFormat> stationformat(const std::string& path)
{
    static constexpr std::array<std::pair<const char*, StationFormat>, 5> endings{
        {{".csv", StationFormat::csv},
         {".gpx", StationFormat::gpx},
         {".kml", StationFormat::kml},
         {".geojson", StationFormat::geojson},
         {".json", StationFormat::geojson}}};
    const std::string name = lowercase(nameof(path));
    for (const auto& [ending, format] : endings)
        if (name.ends_with(ending))
            return format;
    return {};
}

bool takeslinks(StationFormat format)
{
    return format == StationFormat::kml || format == StationFormat::geojson;
}

std::optional<std::string> stationbytes(StationFormat format, const NetworkTables& tables,
                                        std::span<const StationLink> links, std::string& why)
{
    switch (format) {
    case StationFormat::gpx:
        return vectorfile(waypoints(tables), VectorFormat::gpx, why);
    case StationFormat::kml:
        return stationkml(tables, links);
    case StationFormat::geojson:
        return vectorfile(stationsandlinks(tables, links), VectorFormat::geojson, why);
    case StationFormat::csv:
        break;
    }
    return stationtable(tables);
}
