// A .map file: no more memory than its size warrants, and a current one is written back unchanged.

#include "terrain/mapfile.h"

#include <cstdlib>
#include <cstring>
#include <vector>

/// The older format needs a million bytes of heights: an input that has its beginning gets them,
/// made of its own bytes.
static std::vector<std::uint8_t> withheights(const std::uint8_t* data, std::size_t size)
{
    constexpr std::size_t heights = sizeof(float) * 513 * 513;
    std::vector<std::uint8_t> whole(data, data + size);
    while (whole.size() < size + heights)
        whole.insert(whole.end(), data, data + size);
    return whole;
}

static MapStatus check(std::span<const std::byte> bytes)
{
    MapGrid map;
    const MapStatus status = parsemap(bytes, map);
    if (map.samples.size() > bytes.size() / sizeof(std::int16_t))
        std::abort();
    float x = 0;
    float y = 0;
    float height = 0;
    maplookup(map, map.record.maplon0, map.record.maplat0, x, y, height);
    if (status != MapStatus::ok || isoldermap(bytes))
        return status;
    const std::string header = mapheader(map);
    if (std::memcmp(header.data(), bytes.data(), header.size()) != 0)
        std::abort();
    return status;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto bytes = std::as_bytes(std::span(data, size));
    const MapStatus status = check(bytes);
    constexpr std::size_t olderbeginning = 76; // the record, the unused numbers, three lengths
    if (size >= olderbeginning && status == MapStatus::truncated && isoldermap(bytes)) {
        const std::vector<std::uint8_t> whole = withheights(data, size);
        check(std::as_bytes(std::span(whole)));
    }
    return 0;
}
