// A TERRAIN tile of any compressed bytes, expanded and laid on a small table.

#include "terrain/szdd.h"

#include "base/bytes.h"
#include "base/paths.h"
#include "engine/tiles/getterrain.h"

#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    std::vector<std::int16_t> tile(static_cast<std::size_t>(terrainside) * terrainside);
    const auto content =
        expandbytes(std::as_bytes(std::span(data, size)), tile.size() * sizeof tile[0]);
    if (!content)
        return 0;
    ByteReader(asbytes(*content)).readblock(tile.data(), content->size());
    std::vector<std::int16_t> samples(40 * 30);
    getterrain({samples, 40, 30}, tile, {-3.5, 2.25, 3.7, 4.9});
    return 0;
}
