#include "coordinates/positiontexts.h"

#include "base/numbers.h"
#include "base/textcodec.h"
#include "coordinates/mgrs.h"

#include <algorithm>
#include <array>
#include <cmath>

/// Longitude in -180 .. 180, without 180 itself; what is no number gives 0.
static float normallon(float lon)
{
    constexpr float turn = 360;
    if (lon >= -180 && lon < 180)
        return lon;
    const float rest = std::fmod(lon, turn); // exact, and quick for any number
    if (std::isnan(rest))
        return 0;
    return rest < -180 ? rest + turn : rest >= 180 ? rest - turn : rest + 0.0F;
}

/// Latitude in -89 .. 89: texts leave the last degree out; what is no number gives 0.
static float normallat(float lat)
{
    return std::isnan(lat) ? 0 : std::clamp(lat, -89.0F, 89.0F);
}

/// Whole seconds of arc.
static double arcseconds(float degrees)
{
    return roundtoeven(static_cast<double>(degrees) * 3600);
}

static std::string sexagesimal(double seconds, const char* degreepattern)
{
    const double t = std::fabs(seconds);
    return formatnumber(degreepattern, std::floor(t / 3600)) +
           formatnumber("00'", std::fmod(std::floor(t / 60), 60)) +
           formatnumber("00\"", std::fmod(t, 60));
}

std::string dmslon(float& lon)
{
    lon = normallon(lon);
    const double t = arcseconds(lon);
    return sexagesimal(t, "000°") + (t >= 0 ? "E" : "O");
}

std::string dmslat(float& lat)
{
    lat = normallat(lat);
    const double t = arcseconds(lat);
    return sexagesimal(t, "00°") + (t < 0 ? "S" : "N");
}

static char characterat(char first, double index)
{
    return static_cast<char>(first + static_cast<int>(std::floor(index)));
}

/// Field, square and sub-square characters of one axis, from its position counted in fields. Each
/// working value is a single, so that the last letter rounds as it always has.
static std::array<char, 3> locatoraxis(float x)
{
    const float field = std::floor(x);
    x = static_cast<float>((static_cast<double>(x) - static_cast<double>(field)) * 10);
    const float digit = std::floor(x);
    const double rest = static_cast<double>(x) - static_cast<double>(digit);
    return {characterat('A', static_cast<double>(field)),
            characterat('0', static_cast<double>(digit)), characterat('A', rest * 24)};
}

std::string locator(float lon, float lat)
{
    if (!geosys.name.empty())
        return ll2mgrs(static_cast<double>(lon), static_cast<double>(lat));
    const double east = static_cast<double>(normallon(lon)) + 180;
    const double north = static_cast<double>(normallat(lat)) + 90;
    const std::array<char, 3> x = locatoraxis(static_cast<float>(east / 20));
    const std::array<char, 3> y = locatoraxis(static_cast<float>(north / 10));
    return {x[0], y[0], x[1], y[1], x[2], y[2]};
}

/// A character's distance from the first legal one, held within 0 .. most; 0 where it is missing.
static double characterindex(const std::string& text, std::size_t at, char first, int most)
{
    if (at >= text.size())
        return 0;
    return std::clamp(static_cast<unsigned char>(text[at]) - first, 0, most);
}

void locator2ll(std::string_view text, float& lon, float& lat)
{
    std::string s = toansi(trimmed(text));
    std::transform(s.begin(), s.end(), s.begin(), [](char c) {
        return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    });
    const double first = characterindex(s, 0, 'A', 17);
    const double second = characterindex(s, 1, 'A', 17);
    const double third = characterindex(s, 2, '0', 9);
    const double fourth = characterindex(s, 3, '0', 9);
    const double fifth = characterindex(s, 4, 'A', 23);
    const double sixth = characterindex(s, 5, 'A', 23);
    lon = static_cast<float>((first * 10 + third + fifth / 24) * 2 - 180);
    lat = static_cast<float>(second * 10 - 90 + fourth + sixth / 24);
}
