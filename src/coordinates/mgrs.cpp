#include "coordinates/mgrs.h"

#include "base/numbers.h"

#include <algorithm>
#include <cmath>

std::int32_t utmzone = 0;
std::int32_t utmeast = 0;
std::int32_t utmnorth = 0;

/// Degrees to radians; the meridian arc has its own factor, with fewer digits.
static constexpr double radian = 0.017453292519943278;
static constexpr double arcminute = 0.000290888208666;
static constexpr double scale = 0.9996;
static constexpr double falseeasting = 500000;
static constexpr double square = 100000;
static constexpr std::string_view letters = "ABCDEFGHJKLMNPQRSTUVWXYZ";
static constexpr int firstnorthband = 13; // the letter N
static constexpr int lastband = 22;       // the letter X
static constexpr int firstband = 3;       // the letter C
static constexpr int rowcycle = 20;
static constexpr int columncycle = 8;

/// Whole number held within 32 bits; what is no number gives 0.
static std::int32_t towhole(double value)
{
    if (std::isnan(value))
        return 0;
    return static_cast<std::int32_t>(std::clamp(value, -2147483648.0, 2147483647.0));
}

/// Rounds to 10 m.
static std::int32_t tolattice(double metres)
{
    constexpr double most = 2e9;
    return towhole(roundtoeven(std::clamp(metres, -most, most) / 10) * 10);
}

UtmPosition ll2utm(double lon, double lat, const GeodeticSystem& system)
{
    const double zone = std::floor((lon + 186) / 6);
    const double p = (6 * zone - 183 - lon) * 0.36; // west of the central meridian, 10000 seconds
    const double phi = lat * radian;
    const double s = std::sin(phi);
    const double c = std::cos(phi);
    const double t2 = std::tan(phi) * std::tan(phi);
    const double eta = system.ep2 * c * c;
    const double arc = (lat * arcminute * 60 * system.arcA - system.arcB * std::sin(2 * phi) +
                        system.arcC * std::sin(4 * phi) - system.arcD * std::sin(6 * phi) +
                        system.arcE * std::sin(8 * phi)) *
                       scale;
    const double nu = system.a / std::sqrt(1 - system.e2 * s * s);
    const double term2 = s * nu * c * 0.00117475143827;
    const double term3 =
        nu * 2.30098863164e-07 * s * c * c * c * (5 - t2 + 9 * eta + 4 * eta * eta);
    const double term4 = nu * 0.048461975 * c;
    const double term5 = nu * 1.898451897e-05 * c * c * c * (1 - t2 + eta);
    const double p2 = p * p;
    UtmPosition position;
    position.zone = towhole(zone);
    position.northing = tolattice(arc + term2 * p2 + term3 * p2 * p2);
    position.easting = tolattice(falseeasting - term4 * p - term5 * p2 * p);
    return position;
}

/// Letter of an index from 1; beyond the table there is none.
static std::string letterat(std::int64_t index)
{
    if (index < 1 || index > static_cast<std::int64_t>(letters.size()))
        return {};
    return {letters[static_cast<std::size_t>(index - 1)]};
}

/// Index from 1; 0 for what is no letter of the table.
static int letterindex(char letter)
{
    const std::size_t found = letters.find(letter);
    return found == std::string_view::npos ? 0 : static_cast<int>(found) + 1;
}

static std::int64_t positivemodulo(std::int64_t value, std::int64_t modulus)
{
    return (value % modulus + modulus) % modulus;
}

/// Index from 1 of a 100 km row, counted from the equator.
static std::int64_t rowindex(std::int64_t row, std::int64_t zone, std::int16_t rowshift)
{
    const std::int64_t even = zone % 2 == 0 ? 5 : 0;
    return positivemodulo(row + 200 + even + rowshift, rowcycle) + 1;
}

/// Letters before the first column of a zone's set of eight.
static std::int64_t columnoffset(std::int64_t zone)
{
    return columncycle * positivemodulo(zone - 1, 3);
}

static std::string lastfive(std::string_view pattern, double metres)
{
    const std::string digits = formatnumber(pattern, metres);
    return digits.substr(digits.size() - 5);
}

std::string ll2mgrs(double lon, double lat)
{
    const UtmPosition utm = ll2utm(lon, lat, geosys);
    utmzone = utm.zone;
    utmeast = utm.easting;
    utmnorth = utm.northing;
    constexpr double falsenorthing = 10000000;
    const double south = utm.northing < 0 ? falsenorthing : 0;
    const double band = std::min<double>(std::floor(lat / 8) + firstnorthband, lastband);
    const double column = std::floor((utm.easting - falseeasting) / square) + 5;
    const double row = std::floor(utm.northing / square);
    std::string text = formatnumber("00", utm.zone) + letterat(towhole(band)) + " ";
    text += letterat(columnoffset(utm.zone) + towhole(column));
    text += letterat(rowindex(towhole(row), utm.zone, geosys.rowshift)) + " ";
    text += lastfive("000000", utm.easting) + " ";
    text += lastfive("0000000", utm.northing + south);
    return text;
}

/// A grid reference taken apart.
struct GridReference {
    int zone = 0;
    int band = 0; ///< indices of letters from 1; 0 for none
    int column = 0;
    int row = 0;
    double east_m = 0; ///< within the square
    double north_m = 0;
};

static std::string lettersanddigits(std::string_view text)
{
    std::string clean;
    for (const char c : text) {
        if (c >= 'a' && c <= 'z')
            clean += static_cast<char>(c - 'a' + 'A');
        else if ((c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9'))
            clean += c;
    }
    return clean;
}

/// Metres of a field of at most five digits; a field that begins with a letter reads as 0.
static double fieldmetres(std::string digits)
{
    digits.append(5 - digits.size(), '0');
    return leadingnumber(digits);
}

static bool splitreference(std::string_view text, GridReference& reference)
{
    const std::string clean = lettersanddigits(text);
    const std::size_t digits = std::min(clean.find_first_not_of("0123456789"), clean.size());
    constexpr std::size_t lettercount = 3;
    if (clean.size() < digits + lettercount)
        return false;
    const double half = roundtoeven(static_cast<double>(clean.size() - digits - lettercount) / 2);
    if (half < 1 || half > 5)
        return false;
    const auto width = static_cast<std::size_t>(half);
    const double zone = leadingnumber(clean.substr(0, digits));
    reference.band = letterindex(clean[digits]);
    if (reference.band > lastband || reference.band < firstband || zone < 1 || zone > 60)
        return false;
    reference.zone = static_cast<int>(zone);
    reference.column = letterindex(clean[digits + 1]);
    reference.row = letterindex(clean[digits + 2]);
    reference.east_m = fieldmetres(clean.substr(clean.size() - 2 * width, width));
    reference.north_m = fieldmetres(clean.substr(clean.size() - width));
    return true;
}

/// Full easting and northing of a reference; false for a row that its band does not have.
static bool squareorigin(const GridReference& reference, const GeodeticSystem& system,
                         double& easting, double& northing)
{
    const std::int64_t column = reference.column - columnoffset(reference.zone);
    easting = static_cast<double>(column) * square + reference.east_m;
    const double edge =
        std::floor((reference.band - firstnorthband) * 8 * radian * system.b / square);
    constexpr double farthest = 1e9; // an axis that no earth has
    if (!(std::fabs(edge) < farthest))
        return false;
    const auto firstrow = static_cast<std::int64_t>(edge);
    const std::int64_t first = rowindex(firstrow, reference.zone, system.rowshift);
    const std::int64_t above = positivemodulo(reference.row - first, rowcycle);
    if (above > 9)
        return false;
    northing = static_cast<double>(above + firstrow) * square + reference.north_m;
    return true;
}

/// Latitude whose meridian arc is the northing, radians.
static double footlatitude(double northing, const GeodeticSystem& system)
{
    double phi = 0;
    for (int i = 0; i < 8; ++i)
        phi =
            (northing / scale + system.arcB * std::sin(2 * phi) - system.arcC * std::sin(4 * phi) +
             system.arcD * std::sin(6 * phi) - system.arcE * std::sin(8 * phi)) /
            system.arcA;
    return phi;
}

/// Inverse series (terms VII to X): latitude, and degrees west of the zone's eastern edge.
static void utm2ll(double easting, double northing, const GeodeticSystem& system, double& lat,
                   double& west)
{
    constexpr double offset = 0.00001; // degrees, about one metre: part of this inverse
    const double phi = footlatitude(northing, system);
    const double c = std::cos(phi);
    const double s = std::sin(phi);
    const double t = std::tan(phi);
    const double t2 = t * t;
    const double mu = system.ep2 * s * s;
    const double eta = system.ep2 * c * c;
    const double nu = system.a / std::sqrt(1 - system.e2 * s * s);
    const double nu2 = nu * nu;
    const double term7 = (1 + eta) * 1.0321495857937e+17 / nu2 * t;
    const double term8 = (5 + 3 * t2 + 6 * eta - 6 * mu - 3 * eta * eta - 9 * eta * mu) *
                         8.60813167632e+27 / (nu2 * nu2) * t;
    const double term9 = 206347345200 / c / nu;
    const double term10 = 3.441875369e+22 / c / (nu2 * nu) * (2 * t2 + 1 + eta);
    const double q = (easting - falseeasting) * 1e-06;
    const double q2 = q * q;
    lat = phi / radian - (term7 * q2 - term8 * q2 * q2) / 3600 + offset;
    west = 3 + offset - (term9 * q - term10 * q2 * q) / 3600;
}

bool mgrs2ll(std::string_view text, float& lon, float& lat)
{
    if (geosys.a == 0 || geosys.b == 0)
        setgeosys("");
    GridReference reference;
    double easting = 0;
    double northing = 0;
    if (!splitreference(text, reference) || !squareorigin(reference, geosys, easting, northing))
        return false;
    double latitude = 0;
    double west = 0;
    utm2ll(easting, northing, geosys, latitude, west);
    const double longitude = 6 * reference.zone - 180 - west;
    const bool inzone = west <= 6 && west >= 0.000001;
    const bool onearth = latitude > -90 && latitude < 90 && longitude >= -180 && longitude < 180;
    if (!inzone || !onearth)
        return false;
    lon = static_cast<float>(longitude);
    lat = static_cast<float>(latitude);
    return true;
}
