// The other texts that pictures read: places and the colour table.

#include "network/places.h"
#include "relief/colours.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    if (parseplaces(text, -1).size() > size)
        std::abort();
    Colours table;
    parsecolors(text, table);
    Colours again;
    parsecolors(colorstext(table), again);
    if (!(again == table))
        std::abort();
    return 0;
}
