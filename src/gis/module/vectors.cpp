#include "gis/module/readvectors.h"
#include "gis/module/session.h"

#include <cmath>
#include <cpl_vsi.h>
#include <ogrsf_frmts.h>

namespace
{
FieldType fieldtype(OGRFieldType type)
{
    if (type == OFTInteger || type == OFTInteger64)
        return FieldType::integer;
    return type == OFTReal ? FieldType::real : FieldType::text;
}

struct FreeTransformation {
    void operator()(OGRCoordinateTransformation* t) const
    {
        OGRCoordinateTransformation::DestroyCT(t);
    }
};
using Transformation = std::unique_ptr<OGRCoordinateTransformation, FreeTransformation>;

class Reader
{
public:
    Reader(const std::string& path, const VectorLimits& most) : file(path), limits(most)
    {
        dataset.reset(GDALDataset::Open(path.c_str(), GDAL_OF_VECTOR | GDAL_OF_READONLY));
        if (dataset == nullptr)
            refuse();
        wgs84.SetFromUserInput("EPSG:4326");
        wgs84.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
    }

    std::vector<VectorLayer> read()
    {
        const int count = dataset->GetLayerCount();
        std::vector<VectorLayer> layers;
        layers.reserve(static_cast<std::size_t>(count));
        for (int i = 0; i < count; ++i)
            layers.push_back(readlayer(*dataset->GetLayer(i)));
        return layers;
    }

private:
    [[noreturn]] void refuse() const
    {
        const std::string remark = lastremark("cannot be read as points, lines or areas");
        VSIStatBufL status{};
        throw GisFailure(file, VSIStatL(file.c_str(), &status) != 0 ? "no such file" : remark);
    }

    /// From a layer's system to degrees; null where it has them already.
    Transformation todegrees(OGRLayer& layer) const
    {
        OGRSpatialReference own;
        const OGRSpatialReference* system = layer.GetSpatialRef();
        if (system == nullptr && layer.GetGeomType() != wkbNone) {
            if (limits.crs.empty())
                throw GisFailure(file, "has coordinates but names no coordinate system");
            if (own.SetFromUserInput(limits.crs.c_str()) != OGRERR_NONE)
                throw GisFailure(limits.crs, "is no known coordinate system");
            own.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
            system = &own;
        }
        if (system == nullptr || system->IsSame(&wgs84) != 0)
            return nullptr;
        Transformation to(OGRCreateCoordinateTransformation(system, &wgs84));
        if (to == nullptr)
            throw GisFailure(file, "its coordinates cannot be brought to WGS 84");
        return to;
    }

    VectorLayer readlayer(OGRLayer& source)
    {
        VectorLayer layer;
        layer.name = source.GetName();
        OGRFeatureDefn& definition = *source.GetLayerDefn();
        for (int i = 0; i < definition.GetFieldCount(); ++i) {
            OGRFieldDefn& field = *definition.GetFieldDefn(i);
            layer.fields.push_back({field.GetNameRef(), fieldtype(field.GetType())});
        }
        const Transformation to = todegrees(source);
        source.ResetReading();
        while (const OGRFeatureUniquePtr feature{source.GetNextFeature()}) {
            if (++featurecount > limits.features)
                throw GisFailure(file, "holds too many features");
            layer.features.push_back(readfeature(*feature, to.get()));
        }
        if (CPLGetLastErrorType() >= CE_Failure)
            throw GisFailure(file, lastremark("cannot be read"));
        return layer;
    }

    VectorFeature readfeature(OGRFeature& source, OGRCoordinateTransformation* to)
    {
        VectorFeature feature;
        for (int i = 0; i < source.GetFieldCount(); ++i)
            feature.values.emplace_back(
                source.IsFieldSetAndNotNull(i) != 0 ? source.GetFieldAsString(i) : "");
        OGRGeometry* const geometry = source.GetGeometryRef();
        if (geometry == nullptr || geometry->IsEmpty() != 0)
            return feature;
        // Arcs become lines of many points.
        const std::unique_ptr<OGRGeometry> plain(geometry->getLinearGeometry());
        if (to != nullptr && plain->transform(to) != OGRERR_NONE)
            return feature; // lies where its system has no degrees
        feature.heights = plain->Is3D() != 0;
        take(*plain, feature);
        return feature;
    }

    void take(const OGRGeometry& geometry, VectorFeature& feature)
    {
        const OGRwkbGeometryType type = wkbFlatten(geometry.getGeometryType());
        if (type == wkbPoint) {
            const OGRPoint& point = *geometry.toPoint();
            const bool more = feature.kind == VectorKind::points;
            if (!more)
                addpart(feature, VectorKind::points);
            add(feature, {point.getX(), point.getY(), point.getZ()});
        } else if (type == wkbLineString || type == wkbLinearRing) {
            addline(*geometry.toSimpleCurve(), feature, VectorKind::lines);
        } else if (type == wkbPolygon || type == wkbTriangle) {
            for (const OGRLinearRing* ring : *geometry.toPolygon())
                addline(*ring, feature, VectorKind::areas);
        } else if (OGR_GT_IsSubClassOf(type, wkbGeometryCollection) != 0) {
            for (const OGRGeometry* part : *geometry.toGeometryCollection())
                take(*part, feature);
        }
    }

    void addline(const OGRSimpleCurve& line, VectorFeature& feature, VectorKind kind)
    {
        addpart(feature, kind);
        for (int i = 0; i < line.getNumPoints(); ++i)
            add(feature, {line.getX(i), line.getY(i), line.getZ(i)});
    }

    /// A collection of several kinds is of the kind that came first; what differs is left out by
    /// `add`.
    void addpart(VectorFeature& feature, VectorKind kind)
    {
        if (feature.kind == VectorKind::none)
            feature.kind = kind;
        taken = feature.kind == kind;
        if (taken)
            feature.parts.emplace_back();
    }

    void add(VectorFeature& feature, const VectorPoint& point)
    {
        if (!taken || !std::isfinite(point.lon) || !std::isfinite(point.lat))
            return;
        if (++pointcount > limits.points)
            throw GisFailure(file, "holds too many points");
        feature.parts.back().push_back(point);
    }

    std::string file;
    VectorLimits limits;
    Dataset dataset;
    OGRSpatialReference wgs84;
    std::size_t featurecount = 0;
    std::size_t pointcount = 0;
    bool taken = false;
};
} // namespace

bool readvectors(const std::string& file, const VectorLimits& limits,
                 std::vector<VectorLayer>& layers, std::string& why)
{
    const GdalSession session;
    try {
        layers = Reader(file, limits).read();
        return true;
    } catch (const std::exception& error) {
        why = error.what();
        return false;
    }
}
