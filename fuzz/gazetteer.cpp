// The gazetteer: what is read shows as lines of one width, from which a place is picked.

#include "network/gazetteer.h"

#include <cmath>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const Gazetteer gazetteer =
        parsegazetteer(std::string_view(reinterpret_cast<const char*>(data), size));
    if (gazetteer.lines > size || gazetteer.towns.size() > gazetteer.lines)
        std::abort();
    for (const Town& town : gazetteer.towns) {
        const auto picked = picktown(townline(town));
        if (!picked || !(std::fabs(picked->lon) <= 180) || !(std::fabs(picked->lat) <= 89))
            std::abort();
    }
    if (findtowns(gazetteer, "").size() != gazetteer.towns.size())
        std::abort();
    return 0;
}
