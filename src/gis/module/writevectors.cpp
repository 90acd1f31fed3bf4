#include "gis/module/writevectors.h"

#include "gis/module/session.h"

#include <cpl_string.h>
#include <ogrsf_frmts.h>

namespace
{
struct Format {
    const char* driver;
    const char* ending;
};

Format formatof(VectorFormat format)
{
    switch (format) {
    case VectorFormat::gpx:
        return {"GPX", ".gpx"};
    case VectorFormat::kml:
        return {"KML", ".kml"};
    case VectorFormat::geopackage:
        return {"GPKG", ".gpkg"};
    case VectorFormat::geojson:
        break;
    }
    return {"GeoJSON", ".geojson"};
}

OGRFieldType ogrtype(FieldType type)
{
    switch (type) {
    case FieldType::integer:
        return OFTInteger64;
    case FieldType::real:
        return OFTReal;
    case FieldType::text:
        break;
    }
    return OFTString;
}

/// Geometry of all of a layer's features: that of the first; or any, where they differ.
OGRwkbGeometryType layertype(const VectorLayer& layer)
{
    VectorKind kind = VectorKind::none;
    bool several = false;
    for (const VectorFeature& feature : layer.features) {
        if (kind != VectorKind::none && feature.kind != kind)
            return wkbUnknown;
        kind = feature.kind;
        several = several || feature.parts.size() > 1;
    }
    switch (kind) {
    case VectorKind::points:
        return wkbPoint;
    case VectorKind::lines:
        return several ? wkbMultiLineString : wkbLineString;
    case VectorKind::areas:
        return wkbPolygon;
    case VectorKind::none:
        break;
    }
    return wkbUnknown;
}

void addpoints(const VectorFeature& feature, const VectorPart& part, OGRSimpleCurve& line)
{
    for (const VectorPoint& point : part)
        if (feature.heights)
            line.addPoint(point.lon, point.lat, point.height);
        else
            line.addPoint(point.lon, point.lat);
}

std::unique_ptr<OGRGeometry> pointsof(const VectorFeature& feature)
{
    const auto make = [&feature](const VectorPoint& at) {
        return feature.heights ? std::make_unique<OGRPoint>(at.lon, at.lat, at.height)
                               : std::make_unique<OGRPoint>(at.lon, at.lat);
    };
    if (feature.parts.size() == 1 && feature.parts.front().size() == 1)
        return make(feature.parts.front().front());
    auto points = std::make_unique<OGRMultiPoint>();
    for (const VectorPart& part : feature.parts)
        for (const VectorPoint& at : part)
            points->addGeometryDirectly(make(at).release());
    return points;
}

std::unique_ptr<OGRGeometry> linesof(const VectorFeature& feature, bool several)
{
    auto lines = std::make_unique<OGRMultiLineString>();
    for (const VectorPart& part : feature.parts) {
        auto line = std::make_unique<OGRLineString>();
        addpoints(feature, part, *line);
        if (!several && feature.parts.size() == 1)
            return line;
        lines->addGeometryDirectly(line.release());
    }
    return lines;
}

std::unique_ptr<OGRGeometry> areaof(const VectorFeature& feature)
{
    auto area = std::make_unique<OGRPolygon>();
    for (const VectorPart& part : feature.parts) {
        auto ring = std::make_unique<OGRLinearRing>();
        addpoints(feature, part, *ring);
        area->addRingDirectly(ring.release());
    }
    return area;
}

std::unique_ptr<OGRGeometry> geometryof(const VectorFeature& feature, bool several)
{
    switch (feature.kind) {
    case VectorKind::points:
        return pointsof(feature);
    case VectorKind::lines:
        return linesof(feature, several);
    case VectorKind::areas:
        return areaof(feature);
    case VectorKind::none:
        break;
    }
    return nullptr;
}

/// Kinds with fields of their own have these in another order; so they go by their names.
void addfeature(OGRLayer& target, const VectorLayer& layer, const VectorFeature& feature,
                bool several)
{
    const OGRFeatureUniquePtr made(OGRFeature::CreateFeature(target.GetLayerDefn()));
    for (std::size_t i = 0; i < feature.values.size() && i < layer.fields.size(); ++i)
        if (!feature.values[i].empty())
            made->SetField(layer.fields[i].name.c_str(), feature.values[i].c_str());
    if (auto geometry = geometryof(feature, several))
        made->SetGeometryDirectly(geometry.release());
    if (target.CreateFeature(made.get()) != OGRERR_NONE)
        throw GisFailure(target.GetName(), lastremark("cannot be written"));
}

void addlayer(GDALDataset& dataset, const VectorLayer& layer)
{
    OGRSpatialReference wgs84;
    wgs84.SetFromUserInput("EPSG:4326");
    wgs84.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
    const OGRwkbGeometryType type = layertype(layer);
    CPLStringList options;
    if (type == wkbLineString || type == wkbMultiLineString) // else a line is a route
        options.SetNameValue("FORCE_GPX_TRACK", "YES");
    OGRLayer* const target = dataset.CreateLayer(layer.name.c_str(), &wgs84, type, options.List());
    if (target == nullptr)
        throw GisFailure(layer.name, lastremark("cannot be written"));
    for (const VectorField& field : layer.fields) {
        // Kinds with fields of their own have some of these already.
        if (target->GetLayerDefn()->GetFieldIndex(field.name.c_str()) >= 0)
            continue;
        OGRFieldDefn definition(field.name.c_str(), ogrtype(field.type));
        if (target->CreateField(&definition) != OGRERR_NONE)
            throw GisFailure(field.name, lastremark("cannot be written"));
    }
    for (const VectorFeature& feature : layer.features)
        addfeature(*target, layer, feature, type == wkbMultiLineString);
}
} // namespace

std::optional<std::string> vectorbytes(const std::vector<VectorLayer>& layers, VectorFormat format,
                                       std::string& why)
{
    const GdalSession session;
    try {
        const Format kind = formatof(format);
        const MemoryFile file(kind.ending);
        GDALDriver* const driver = GetGDALDriverManager()->GetDriverByName(kind.driver);
        CPLStringList options;
        if (format == VectorFormat::gpx) // for fields that GPX has no place for
            options.SetNameValue("GPX_USE_EXTENSIONS", "YES");
        Dataset dataset(driver == nullptr ? nullptr
                                          : driver->Create(file.name().c_str(), 0, 0, 0,
                                                           GDT_Unknown, options.List()));
        if (dataset == nullptr)
            throw GisFailure(kind.driver, lastremark("cannot be written"));
        for (const VectorLayer& layer : layers)
            addlayer(*dataset, layer);
        dataset.reset(); // completes the file
        return file.content();
    } catch (const std::exception& error) {
        why = error.what();
        return {};
    }
}
