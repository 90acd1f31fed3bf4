#include "coverage/pattern.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const AntennaPattern pattern = parsepattern({reinterpret_cast<const char*>(data), size});
    for (const float gain_db : pattern)
        if (!(gain_db >= -100 && gain_db <= 100))
            std::abort();
    return 0;
}
