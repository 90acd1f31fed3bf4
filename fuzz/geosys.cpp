// A geosys.dat file, and positions on whatever earth it describes.

#include "coordinates/mgrs.h"

#include <cmath>
#include <cstdlib>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    setgeosys("");
    parsegeosys({reinterpret_cast<const char*>(data), size}, geosys);
    derivegeosys(geosys);
    if (!std::isfinite(geosys.arcA) || !std::isfinite(geosys.e2))
        std::abort();
    float lon = 0;
    float lat = 0;
    for (const double degrees : {-73.5, 0.0, 151.2})
        mgrs2ll(ll2mgrs(degrees, degrees / 2), lon, lat);
    mgrs2ll("18TXF1719039590", lon, lat);
    return 0;
}
