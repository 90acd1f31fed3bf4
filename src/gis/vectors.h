#pragma once

#include <cstddef>
#include <string>
#include <vector>

/// A position: WGS 84 in degrees, east and north positive; the height in m, 0 where there is none.
struct VectorPoint {
    double lon = 0, lat = 0, height = 0;
    bool operator==(const VectorPoint&) const = default;
};

/// Points in their order: a line, a ring of an area (the first point again at its end, the outer
/// ring before its holes), or points that belong together.
using VectorPart = std::vector<VectorPoint>;

enum class VectorKind { none, points, lines, areas };

/// A thing with its fields.
struct VectorFeature {
    VectorKind kind = VectorKind::none;
    std::vector<VectorPart> parts;
    bool heights = false;            ///< its points have heights
    std::vector<std::string> values; ///< of the layer's fields, UTF-8; empty: none
};

enum class FieldType { text, integer, real };

struct VectorField {
    std::string name;
    FieldType type = FieldType::text;
    bool operator==(const VectorField&) const = default;
};

struct VectorLayer {
    std::string name;
    std::vector<VectorField> fields;
    std::vector<VectorFeature> features;
};

/// Most that is read: a file that holds more is refused.
struct VectorLimits {
    std::size_t features = 1'000'000;
    std::size_t points = 20'000'000;
    std::string crs; ///< of a file that has coordinates and names no system; empty: refuse such
};

/// Kinds of one file that can be written. A GPX takes points as waypoints and lines as tracks.
enum class VectorFormat { geojson, gpx, kml, geopackage };
