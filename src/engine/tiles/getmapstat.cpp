#include "engine/tiles/getmapstat.h"

#include <algorithm>

TileStatus getmapstat(const HeightTable& table, MapStatistics& statistics, const TileStep& step)
{
    if (table.samples.empty() || table.width < 1)
        return TileStatus::ok;
    std::int16_t lowest = table.samples[0];
    std::int16_t highest = lowest;
    std::int64_t sum = 0;
    for (int y = 0; y < table.height; ++y) {
        for (const std::int16_t height : table.row(y, 0, static_cast<std::size_t>(table.width))) {
            lowest = std::min(lowest, height);
            highest = std::max(highest, height);
            sum += height;
        }
        if (!step(y + 1))
            return TileStatus::stopped;
    }
    statistics.hmin = lowest;
    statistics.hmax = highest;
    statistics.hmoy =
        static_cast<float>(static_cast<double>(sum) / static_cast<double>(table.samples.size()));
    return TileStatus::ok;
}
