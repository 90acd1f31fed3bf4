#pragma once

#include <array>
#include <cstdint>
#include <string>

/// Kind of georeference of a picture.
namespace pictype
{
inline constexpr std::int16_t plain = 0;
inline constexpr std::int16_t map = 1;
inline constexpr std::int16_t fourcorners = 2;
inline constexpr std::int16_t view3d = 3;
inline constexpr std::int16_t observation = 4;
} // namespace pictype

/// Caption, name and source of the world map.
inline constexpr const char* worldtitle = "Mappemonde";

/// A picture's data beside its pixels. Corners go clockwise from the top left.
struct Picture {
    std::string source;   ///< where it came from, as the status line shows it
    std::string Filename; ///< path of the raster; a made-up name while it isn't saved
    std::int16_t Pictype = pictype::plain;
    std::array<float, 4> lon{}; ///< lon1 to lon4, degrees
    std::array<float, 4> lat{}; ///< lat1 to lat4, degrees
    /// 3D values: amplx, phi, theta, disto, aper, size, ofx, ofy, w3, h3, q3.
    std::array<float, 11> view{};
    std::int16_t Mapmode = 0;            ///< drawing mode of a rendered map
    std::uint8_t city = 0;               ///< 0 or 255
    float light = 0;                     ///< azimuth, degrees
    float bri = 0, con = 0;              ///< percent
    std::uint8_t c1 = 0, c2 = 0;         ///< contour flags, as in the map record
    float hmin = 0, hmax = 0, hmoy = 0;  ///< of the map it was rendered from, m
    float minx = 0, maxx = 0;            ///< floor and ceiling of the rendering, m
    int scalewidth = 0, scaleheight = 0; ///< size of the surface, pixels

    /// The world map, which most loops over pictures leave out; saved under a name it is a picture
    /// as any other.
    bool isworld() const { return Filename == worldtitle; }
    /// A stereo picture carries no overlay and no crosshair.
    bool isstereo() const;
    /// Pixels have positions: a map or a picture of four corners.
    bool isplaced() const { return Pictype > pictype::plain && Pictype < pictype::view3d; }
};
