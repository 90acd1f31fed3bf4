// Texts and numbers as positions: results stay on the earth whatever is typed.

#include "coordinates/mgrs.h"

#include "coordinates/positiontexts.h"

#include <cstdlib>
#include <cstring>
#include <string_view>

static void checkposition(float lon, float lat)
{
    if (!(lon >= -180 && lon < 180 && lat >= -90 && lat <= 90))
        std::abort();
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    setgeosys("");
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    float lon = 0;
    float lat = 0;
    mgrs2ll(text, lon, lat);
    checkposition(lon, lat);
    locator2ll(text, lon, lat);
    checkposition(lon, lat);
    double numbers[2] = {0, 0};
    std::memcpy(numbers, data, size < sizeof numbers ? size : sizeof numbers);
    ll2mgrs(numbers[0], numbers[1]);
    std::memcpy(&lon, numbers, sizeof lon);
    std::memcpy(&lat, reinterpret_cast<const char*>(numbers) + sizeof lon, sizeof lat);
    if (locator(lon, lat).size() != 6)
        std::abort();
    dmslon(lon);
    dmslat(lat);
    checkposition(lon, lat);
    return 0;
}
