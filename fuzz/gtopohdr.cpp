// The header of a GTOPO30 tile of any text, and a tile of any bytes: the text ends at the first
// NUL, the tile's bytes stand behind it.

#include "engine/tiles/gettopo30.h"

#include <algorithm>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    const std::string_view text = input.substr(0, input.find('\0'));
    const std::string_view bytes = input.substr(std::min(text.size() + 1, size));
    const ByteSource file = bytesource(std::as_bytes(std::span(bytes.data(), bytes.size())));
    topoheader(text, {60, 30}, 51840000);
    const auto header = topoheader(text, {40, 50}, file.size);
    if (!header)
        return 0;

    const auto readrow = [&](int row, int first, std::span<std::int16_t> heights) {
        std::fill(heights.begin(), heights.end(), voidheight);
        const int from = std::clamp(first, 0, header->columns);
        const int to = std::clamp(first + static_cast<int>(heights.size()), from, header->columns);
        return row < 0 || row >= header->rows ||
               readtoporow(file, *header, row, from,
                           heights.subspan(static_cast<std::size_t>(from - first),
                                           static_cast<std::size_t>(to - from)));
    };
    std::vector<std::int16_t> samples(40 * 30);
    const TilePlace place{3.5, 31, 1.25 * header->columns / 40, -1.25 * header->rows / 30};
    gettopo30({samples, 40, 30}, *header, readrow, place, [](int) { return true; });
    return 0;
}
