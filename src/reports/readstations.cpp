#include "reports/readstations.h"

#include "base/numbers.h"
#include "base/paths.h"
#include "gis/gis.h"

#include <algorithm>
#include <array>

namespace
{
/// Far more than a table of 10^6 rows takes.
constexpr std::size_t mostbytes = std::size_t{1} << 28;

bool istable(const std::string& path)
{
    const std::string name = lowercase(nameof(path));
    return name.ends_with(".csv") || name.ends_with(".txt") || name.ends_with(".tsv");
}

StationReading readtable(const std::string& path, StationRecords& records)
{
    const auto text = readfile(path, mostbytes + 1);
    if (!text)
        return StationReading::unreadable;
    if (text->size() > mostbytes)
        return StationReading::toolarge;
    return readstationtable(asbytes(*text), records) ? StationReading::ok
                                                     : StationReading::nocolumns;
}

/// The points of a track or route over again, one by one.
bool repeatslines(const VectorLayer& layer)
{
    return layer.name == "track_points" || layer.name == "route_points";
}

StationColumns columnsof(const VectorLayer& layer)
{
    std::vector<std::string> names;
    for (const VectorField& field : layer.fields)
        names.push_back(field.name);
    return stationcolumns(names);
}

StationRecord atpoint(StationRecord record, const VectorFeature& feature, const VectorPoint& point,
                      const StationColumns& columns)
{
    setposition(record, point.lon, point.lat);
    if (feature.heights && !columns.elevation)
        setelevation(record, point.height);
    return record;
}

/// A feature is a station at each of its points; one without a place is a row of a table.
void takefeature(const VectorFeature& feature, const StationColumns& columns, std::size_t row,
                 StationRecords& records)
{
    StationRecord record = stationofrow(columns, feature.values);
    record.row = row;
    if (feature.kind == VectorKind::none) {
        records.add(std::move(record));
        return;
    }
    record.detail.clear();
    record.fault =
        feature.kind == VectorKind::points ? StationFault::noposition : StationFault::notpoint;
    const bool points = feature.kind == VectorKind::points && !feature.parts.empty() &&
                        !feature.parts.front().empty();
    if (!points) {
        records.add(std::move(record));
        return;
    }
    record.fault = StationFault::none;
    for (const VectorPart& part : feature.parts)
        for (const VectorPoint& point : part)
            records.add(atpoint(record, feature, point, columns));
}

void takelayers(const std::vector<VectorLayer>& layers, StationRecords& records)
{
    std::size_t row = 0;
    for (const VectorLayer& layer : layers) {
        if (repeatslines(layer))
            continue;
        const StationColumns columns = columnsof(layer);
        for (const VectorFeature& feature : layer.features)
            takefeature(feature, columns, ++row, records);
    }
}
} // namespace

StationReading readstations(const std::string& path, StationRecords& records, std::string& why)
{
    const auto found = findfile(path);
    if (!found) {
        why = "no such file";
        return StationReading::unreadable;
    }
    if (istable(*found))
        return readtable(*found, records);
    const GisLibrary* const gis = gislibrary();
    if (gis == nullptr)
        return StationReading::nolibrary;
    VectorLimits limits;
    limits.crs = "EPSG:4326"; // tables that name no system have degrees
    std::vector<VectorLayer> layers;
    if (!gis->readvectors(*found, limits, layers, why))
        return StationReading::refused;
    takelayers(layers, records);
    return StationReading::ok;
}
