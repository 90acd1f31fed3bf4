// What a user types into fields: numbers and positions. Held values lie within their bounds, and
// positions on the earth.

#include "base/numbers.h"
#include "coordinates/dmsfields.h"
#include "coordinates/mgrs.h"
#include "coordinates/positiontexts.h"

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <string_view>

static void requirewithin(double value, double low, double high)
{
    if (!(value >= low && value <= high))
        std::abort();
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    if (std::isnan(typednumber(text)) || std::isnan(leadingnumber(text)))
        std::abort();
    requirewithin(checkfield(-5, 20000, text).value, -5, 20000);

    DmsFields fields;
    for (std::size_t part = 0; part < 3; ++part) {
        fields.lon[part] = text.substr(std::min(size, part * size / 3), size / 3);
        fields.lat[part] = text.substr(std::min(size, size - part * size / 3), size / 3);
    }
    fields.lonletter = size % 2 == 0 ? 'E' : 'O';
    fields.latletter = size % 3 == 0 ? 'N' : 'S';
    float lon = 0;
    float lat = 0;
    fields2ll(fields, lon, lat);
    requirewithin(double{lon}, -180, 180);
    requirewithin(double{lat}, -90, 90);
    locator2ll(text, lon, lat);
    requirewithin(double{lon}, -180, 180);
    requirewithin(double{lat}, -90, 90);
    if (mgrs2ll(text, lon, lat)) {
        requirewithin(double{lon}, -180, 180);
        requirewithin(double{lat}, -90, 90);
    }
    return 0;
}
