#include "pictures/georeference.h"

#include "base/numbers.h"

#include <cmath>

namespace
{

/// Position in a picture as fractions of its width and height, from the top left.
struct Fractions {
    double u, v;
};

double interpolate(const std::array<float, 4>& corner, double u, double v)
{
    return static_cast<double>(corner[0]) * (1 - u) * (1 - v) +
           static_cast<double>(corner[1]) * u * (1 - v) + static_cast<double>(corner[2]) * u * v +
           static_cast<double>(corner[3]) * (1 - u) * v;
}

/// Fraction of the way from one value to another; not finite where both are the same.
double along(double value, float from, float to)
{
    return (value - static_cast<double>(from)) /
           (static_cast<double>(to) - static_cast<double>(from));
}

Fractions inmap(const Picture& picture, double lon, double lat)
{
    return {along(lon, picture.lon[0], picture.lon[1]), along(lat, picture.lat[0], picture.lat[3])};
}

/// Crosses the lines between opposite edges. Exact on the edges; inside a skewed picture an
/// approximation of the inverse.
Fractions infourcorners(const Picture& picture, double lon, double lat)
{
    const auto& plon = picture.lon;
    const auto& plat = picture.lat;
    const auto corner = [&plat](std::size_t i) { return static_cast<double>(plat[i]); };
    const double standing = corner(0) - corner(3) + corner(1) - corner(2);
    const double lying = corner(0) - corner(1) + corner(3) - corner(2);
    double a = 0; // height fraction on the left edge
    double b = 0; // width fraction on the top edge
    double c = 0; // height fraction on the right edge
    double d = 0; // width fraction on the bottom edge
    if (std::abs(lying) <= std::abs(standing)) {
        a = along(lat, plat[0], plat[3]);
        b = along(lon, plon[0], plon[1]);
        c = along(lat, plat[1], plat[2]);
        d = along(lon, plon[3], plon[2]);
    } else {
        a = along(lon, plon[0], plon[3]);
        b = along(lat, plat[0], plat[1]);
        c = along(lon, plon[1], plon[2]);
        d = along(lat, plat[3], plat[2]);
    }
    const double k = 1 / (1 - (d - b) * (c - a));
    return {((d - b) * a + b) * k, ((c - a) * b + a) * k};
}

bool inside(double fraction)
{
    constexpr double lowest = -0.0001;
    constexpr auto highest = static_cast<double>(1.0001F);
    return fraction > lowest && fraction < highest;
}

} // namespace

bool pic2ll(const Picture& picture, float x, float y, float& lon, float& lat)
{
    if (!picture.isplaced() || picture.scalewidth == 1 || picture.scaleheight == 1)
        return false;
    const double u = static_cast<double>(x) / (picture.scalewidth - 1);
    const double v = static_cast<double>(y) / (picture.scaleheight - 1);
    lon = static_cast<float>(interpolate(picture.lon, u, v));
    lat = static_cast<float>(interpolate(picture.lat, u, v));
    return u >= 0 && u <= 1 && v >= 0 && v <= 1;
}

bool ll2pic(const Picture& picture, float lon, float lat, float& x, float& y)
{
    x = y = -1;
    double wrapped = static_cast<double>(lon);
    if (picture.lon[1] > 180 && lon < 0)
        wrapped += 360;
    if (picture.lon[0] < -180 && lon > 0)
        wrapped -= 360;
    Fractions at{-1, -1};
    if (picture.Pictype == pictype::map)
        at = inmap(picture, wrapped, static_cast<double>(lat));
    else if (picture.Pictype == pictype::fourcorners)
        at = infourcorners(picture, wrapped, static_cast<double>(lat));
    if (!std::isfinite(at.u) || !std::isfinite(at.v))
        return false;
    x = static_cast<float>(roundtoeven(at.u * (picture.scalewidth - 1)));
    y = static_cast<float>(roundtoeven(at.v * (picture.scaleheight - 1)));
    return inside(at.u) && inside(at.v);
}
