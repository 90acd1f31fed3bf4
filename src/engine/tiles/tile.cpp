#include "engine/tiles/tile.h"

#include <cstring>

ByteSource bytesource(std::span<const std::byte> bytes)
{
    const auto read = [bytes](std::uint64_t offset, std::span<std::byte> target) {
        if (offset > bytes.size() || target.size() > bytes.size() - offset)
            return false;
        if (!target.empty())
            std::memcpy(target.data(), bytes.data() + offset, target.size());
        return true;
    };
    return {bytes.size(), read};
}
