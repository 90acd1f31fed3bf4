// A raster file of any bytes: opened as heights, as an import does, and laid into a small window.

#include "gis/module/raster.h"

#include "gis/module/readraster.h"

#include <algorithm>
#include <array>
#include <cpl_vsi.h>
#include <cstdint>
#include <cstdlib>
#include <vector>

namespace
{
// What a file may claim here: the import of a large raster may take its time.
constexpr double mostpixels = 1e6;

void readheights(const std::string& file)
{
    const GdalSession session;
    ImportOrder order;
    order.say = [](const std::string&, const std::string&) {};
    try {
        const Raster raster = openraster(file, order);
        std::array<float, 64> heights{};
        GDALDataset& dataset = *raster.heights;
        const int columns = std::min(8, dataset.GetRasterXSize());
        const int rows = std::min(8, dataset.GetRasterYSize());
        const CPLErr read =
            dataset.GetRasterBand(1)->RasterIO(GF_Read, 0, 0, columns, rows, heights.data(),
                                               columns, rows, GDT_Float32, 0, 0, nullptr);
        for (const float height : heights)
            if (read == CE_None && height > novalue &&
                !(height >= static_cast<float>(lowestterrain) &&
                  height <= static_cast<float>(highestterrain)))
                std::abort();
    } catch (const GisFailure&) {
        return; // it says why
    }
}

void readwindow(const std::string& file)
{
    constexpr int side = 16;
    std::string why;
    const auto raster = opengisraster(file, {}, why);
    if (!raster || double{1} * raster->info().columns * raster->info().rows > mostpixels)
        return;
    std::vector<float> values(side * side);
    raster->readvalues(raster->info().box, side, side, 1, Resampling::bilinear, -1, values, {},
                       why);
    std::vector<std::uint32_t> colours(side * side);
    raster->readcolours(raster->info().box, side, side, Resampling::nearest, colours, {}, why);
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0)
        return 0;
    const std::string file = "/vsimem/fuzzed";
    std::vector<std::uint8_t> bytes(data, data + size);
    VSIFCloseL(VSIFileFromMemBuffer(file.c_str(), bytes.data(), bytes.size(), FALSE));
    readwindow(file);
    readheights(file);
    VSIUnlink(file.c_str());
    return 0;
}
