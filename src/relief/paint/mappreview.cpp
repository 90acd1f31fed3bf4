#include "relief/paint/mappreview.h"

#include "engine/draw/fastdraw.h"
#include "relief/colours.h"

#include <algorithm>

MapGrid thinnedmap(const MapGrid& map, int side)
{
    MapGrid thinned;
    const int step = std::max(1, (std::max(map.width, map.height) + side - 1) / side);
    thinned.width = map.width / step;
    thinned.height = map.height / step;
    thinned.maplon = map.maplon;
    thinned.maplat = map.maplat;
    thinned.samples.reserve(static_cast<std::size_t>(thinned.width) *
                            static_cast<std::size_t>(thinned.height));
    for (int y = 0; y < thinned.height; ++y)
        for (int x = 0; x < thinned.width; ++x)
            thinned.samples.push_back(map.at(x * step, y * step));
    return thinned;
}

QImage mappreview(const MapGrid& map, const PictureSettings& settings)
{
    if (map.samples.empty())
        return {};
    QImage image(map.width, map.height, QImage::Format_RGB32);
    DrawValues values = drawvalues(map, settings.record);
    values.contour10 = values.contour100 = values.contour500 = false;
    fastdraw({map.samples.data(), map.width, map.height}, values, drawscale(colours, values),
             {reinterpret_cast<std::uint32_t*>(image.bits()),
              static_cast<int>(image.bytesPerLine() / 4), 0, 0, map.width - 1, map.height - 1});
    return image;
}
