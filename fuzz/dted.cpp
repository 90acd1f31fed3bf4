// A DTED cell of any bytes, laid on a small table.

#include "engine/tiles/getdted.h"

#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const ByteSource file = bytesource(std::as_bytes(std::span(data, size)));
    const auto header = dtedheader(file);
    if (!header)
        return 0;
    std::vector<std::int16_t> samples(40 * 30);
    const double degrees = 1.25; // across the table
    const TilePlace place{4.5, -3.25, degrees / 40 / header->spacingx,
                          degrees / 30 / header->spacingy};
    int steps = 0;
    getdted({samples, 40, 30}, file, *header, place, [&steps](int) { return ++steps < 35; });
    return 0;
}
