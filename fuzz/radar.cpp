#include "coverage/radar.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto radar = parseradar({reinterpret_cast<const char*>(data), size});
    if (radar && (radar->count() < 1 || radar->gates.size() > size || !(radar->gatesize_km > 0)))
        std::abort();
    return 0;
}
