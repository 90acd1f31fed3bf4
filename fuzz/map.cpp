// A .map file: no more memory than its size or its format warrants, and a whole one of the current
// format is written back unchanged.

#include "terrain/mapfile.h"

#include <algorithm>
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
    // What ends early keeps the frame that it announces, up to 8192 x 8192 samples.
    constexpr std::size_t mostincomplete = std::size_t{1} << 26;
    if (map.samples.size() > std::max(mostincomplete, bytes.size() / sizeof(std::int16_t)))
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

/// Most inputs announce maps of any size; small ones let the run reach thousands a second.
static std::vector<std::uint8_t> withsmallmap(const std::uint8_t* data, std::size_t size)
{
    constexpr std::size_t width = 4; // where it stands, the height behind it
    constexpr std::int32_t most = 64;
    std::vector<std::uint8_t> small(data, data + size);
    for (std::size_t at = width; at < 12 && at + 4 <= size; at += 4) {
        std::int32_t count = 0;
        std::memcpy(&count, small.data() + at, sizeof count);
        count %= most;
        std::memcpy(small.data() + at, &count, sizeof count);
    }
    return small;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const bool older = isoldermap(std::as_bytes(std::span(data, size)));
    const std::vector<std::uint8_t> input =
        older ? std::vector<std::uint8_t>(data, data + size) : withsmallmap(data, size);
    const auto bytes = std::as_bytes(std::span(input));
    const MapStatus status = check(bytes);
    constexpr std::size_t olderbeginning = 76; // the record, the unused numbers, three lengths
    constexpr int oneof = 16;                  // the older format is a megabyte whatever it holds
    if (size >= olderbeginning && status == MapStatus::truncated && older &&
        data[size - 1] % oneof == 0) {
        const std::vector<std::uint8_t> whole = withheights(data, size);
        check(std::as_bytes(std::span(whole)));
    }
    return 0;
}
