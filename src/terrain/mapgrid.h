#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

/// Where the map lies and how it is drawn: the 50 bytes of the file's map record, in their order.
struct MapRecord {
    float maplon0 = -73;      ///< centre longitude, degrees, east positive
    float maplat0 = 45;       ///< centre latitude, degrees
    float mapsize = 200;      ///< north-south extent, km
    std::int16_t Mapmode = 5; ///< drawing mode, 0 to 5
    float con = 30;           ///< contrast, percent
    float bri = 70;           ///< brightness, percent
    float minx = 0;           ///< drawing floor, m
    float maxx = 0;           ///< drawing ceiling, m
    float light = 335;        ///< light azimuth, degrees
    std::uint8_t c1 = 0;      ///< 1: contour lines of 10 m
    std::uint8_t c2 = 0;      ///< 1: contour lines of 100 m; 2: of 500 m
    float hmin = 0;           ///< lowest sample, m
    float hmax = 0;           ///< highest sample, m
    float hmoy = 0;           ///< mean sample, m
    std::uint8_t sources = 0; ///< 1 DTED, 2 GTOPO30, 4 TERRAIN
    char sourceletter = ' ';  ///< carried along from the older format

    bool operator==(const MapRecord&) const = default;
};

/// The elevation map: 16-bit heights in metres, x fastest and eastward, row 0 at the south edge,
/// with its frame. Corners: 0 north-west, 1 north-east, 2 south-east, 3 south-west; not wrapped, so
/// that a frame across the 180th meridian has a longitude beyond it.
struct MapGrid {
    std::vector<std::int16_t> samples; ///< width x height
    int width = 0;
    int height = 0;
    MapRecord record;
    std::array<float, 4> maplon{}; ///< degrees
    std::array<float, 4> maplat{}; ///< degrees
    std::int16_t cities = 0;       ///< non-zero: cities are drawn

    int upperx() const { return width - 1; }
    int uppery() const { return height - 1; }
    std::int16_t at(int x, int y) const
    {
        return samples[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                       static_cast<std::size_t>(x)];
    }
    std::int16_t& at(int x, int y)
    {
        return samples[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                       static_cast<std::size_t>(x)];
    }
};

/// The one map of the process.
extern MapGrid mapgrid;
/// Full path of its file; "default.map" after a new network.
extern std::string mapname;
/// True when the map differs from its file.
extern bool mapdirty;
/// True when the map's file ended before all its heights: those that were missing are 0.
extern bool mapincomplete;

/// Degrees to radians, with the constant that the frames of all existing maps were made with.
inline constexpr double degree = 0.017453292519943278;
/// Radius of the earth in frame arithmetic, km.
inline constexpr double earthradius_km = 6367;

/// Replaces the samples by width x height zeros. The frame stays. A width or height below 1 leaves
/// the map without samples. The process's map is a whole one then.
void allocatemap(MapGrid& map, int width, int height);

/// Derives the corners from the record's centre and size, with cells square on the ground at the
/// centre. A size below 1 km becomes 1 km. Needs the samples' bounds.
void mapframe(MapGrid& map);

/// Cell and height under a position.
///   Given:    lon, lat  degrees
///   Returned: x, y      nearest cell, also when it lies outside
///             elev      height in m, unchanged when outside
///   Errors:   a frame without extent gives false and changes nothing
/// True when the position falls on the map. A map without samples gives true and changes nothing.
bool maplookup(const MapGrid& map, float lon, float lat, float& x, float& y, float& elev);
/// The same on the process's map.
bool maplookup(float lon, float lat, float& x, float& y, float& elev);
