#include "coordinates/dmsfields.h"

#include "base/numbers.h"
#include "coordinates/positiontexts.h"

#include <algorithm>

float picklon = 0;
float picklat = 0;

/// Degrees, minutes and seconds of a text as 073°15'02"O; the sign of the degrees has two bytes.
static std::array<std::string, 3> numbersof(const std::string& text)
{
    const std::size_t degrees = text.find("°");
    return {text.substr(0, degrees), text.substr(degrees + 2, 2), text.substr(degrees + 5, 2)};
}

DmsFields ll2fields(float& lon, float& lat)
{
    const std::string lontext = dmslon(lon);
    const std::string lattext = dmslat(lat);
    return {numbersof(lontext), lontext.back(), numbersof(lattext), lattext.back()};
}

/// Degrees of three fields, held within -limit .. limit.
static float axisdegrees(const std::array<std::string, 3>& fields, double limit)
{
    const double degrees =
        typednumber(fields[0]) + typednumber(fields[1]) / 60 + typednumber(fields[2]) / 3600;
    return static_cast<float>(std::clamp(degrees, -limit, limit));
}

void fields2ll(const DmsFields& fields, float& lon, float& lat)
{
    lon = axisdegrees(fields.lon, 180);
    if (fields.lonletter == 'O')
        lon = -lon;
    lat = axisdegrees(fields.lat, 90);
    if (fields.latletter != 'N')
        lat = -lat;
}
