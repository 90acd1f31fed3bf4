// The list of predefined systems: each name that it offers is found again.

#include "network/predefined.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto bytes = std::as_bytes(std::span(data, size));
    const auto names = predefinednames(bytes);
    if (names.size() > size)
        std::abort();
    for (std::size_t i = 0; i < names.size() && i < 50; ++i) {
        const auto found = findpredefined(bytes, names[i]);
        if (!found || found->name != names[i])
            std::abort();
    }
    return 0;
}
