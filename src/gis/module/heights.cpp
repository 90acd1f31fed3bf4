#include "gis/module/heights.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace
{
constexpr int mostblockpixels = 1 << 22;
// What programs write where they have no height.
constexpr std::array<float, 8> customaryvoids{-9999, -32767, -32768,         -99999,
                                              -9998, 32767,  -3.4028235e38F, 3.4028235e38F};

class HeightBand final : public GDALRasterBand
{
public:
    HeightBand(GDALDataset* owner, GDALRasterBand& band, HeightRule given)
        : source(band), rule(std::move(given))
    {
        poDS = owner;
        nBand = 1;
        eDataType = GDT_Float32;
        nRasterXSize = band.GetXSize();
        nRasterYSize = band.GetYSize();
        band.GetBlockSize(&nBlockXSize, &nBlockYSize);
        nBlockXSize = std::clamp(nBlockXSize, 1, std::max(1, nRasterXSize));
        nBlockYSize = std::clamp(nBlockYSize, 1, std::max(1, mostblockpixels / nBlockXSize));
        masked = (band.GetMaskFlags() & GMF_ALL_VALID) == 0;
    }

    double GetNoDataValue(int* present) override
    {
        if (present != nullptr)
            *present = TRUE;
        return static_cast<double>(novalue);
    }
    std::int64_t refused = 0;

protected:
    CPLErr IReadBlock(int column, int row, void* data) override
    {
        auto* const heights = static_cast<float*>(data);
        const int x = column * nBlockXSize;
        const int y = row * nBlockYSize;
        const int width = std::min(nBlockXSize, nRasterXSize - x);
        const int height = std::min(nBlockYSize, nRasterYSize - y);
        const auto line = static_cast<GSpacing>(nBlockXSize) * GSpacing{sizeof(float)};
        const auto pixels =
            static_cast<std::size_t>(nBlockXSize) * static_cast<std::size_t>(nBlockYSize);
        std::fill(heights, heights + pixels, novalue);
        if (source.RasterIO(GF_Read, x, y, width, height, heights, width, height, GDT_Float32,
                            sizeof(float), line, nullptr) != CE_None)
            return CE_Failure;
        std::vector<GByte> mask;
        if (masked) {
            mask.resize(pixels, 0);
            if (source.GetMaskBand()->RasterIO(GF_Read, x, y, width, height, mask.data(), width,
                                               height, GDT_Byte, 1, nBlockXSize,
                                               nullptr) != CE_None)
                return CE_Failure;
        }
        const bool first = firsttime(column, row);
        for (int j = 0; j < height; ++j)
            for (int i = 0; i < width; ++i) {
                const auto at =
                    static_cast<std::size_t>(j) * static_cast<std::size_t>(nBlockXSize) +
                    static_cast<std::size_t>(i);
                heights[at] = mask.empty() || mask[at] != 0 ? metres(heights[at], first) : novalue;
            }
        return CE_None;
    }

private:
    float metres(float number, bool count)
    {
        if (std::isnan(number) ||
            std::find(rule.voids.begin(), rule.voids.end(), number) != rule.voids.end())
            return novalue;
        const double height = static_cast<double>(number) * rule.scale + rule.offset;
        if (height >= lowestterrain && height <= highestterrain)
            return static_cast<float>(height);
        refused += count ? 1 : 0;
        return novalue;
    }

    /// A block may be read again after others have pushed it out of memory.
    bool firsttime(int column, int row)
    {
        const int across = (nRasterXSize - 1) / nBlockXSize + 1;
        const int down = (nRasterYSize - 1) / nBlockYSize + 1;
        if (seen.empty())
            seen.resize(static_cast<std::size_t>(across) * static_cast<std::size_t>(down));
        const auto at = static_cast<std::size_t>(row) * static_cast<std::size_t>(across) +
                        static_cast<std::size_t>(column);
        const bool before = seen[at];
        seen[at] = true;
        return !before;
    }

    GDALRasterBand& source;
    HeightRule rule;
    bool masked = false;
    std::vector<bool> seen;
};
} // namespace

HeightDataset::HeightDataset(GDALDataset& raster, int band, const HeightRule& rule) : source(raster)
{
    nRasterXSize = raster.GetRasterXSize();
    nRasterYSize = raster.GetRasterYSize();
    SetBand(1, new HeightBand(this, *raster.GetRasterBand(band), rule)); // the base deletes it
}

std::int64_t HeightDataset::refused() const
{
    return static_cast<const HeightBand*>(papoBands[0])->refused;
}

CPLErr HeightDataset::GetGeoTransform(double* geotransform)
{
    return source.GetGeoTransform(geotransform);
}

const OGRSpatialReference* HeightDataset::GetSpatialRef() const
{
    return source.GetSpatialRef();
}

int HeightDataset::GetGCPCount()
{
    return source.GetGCPCount();
}

const OGRSpatialReference* HeightDataset::GetGCPSpatialRef() const
{
    return source.GetGCPSpatialRef();
}

const GDAL_GCP* HeightDataset::GetGCPs()
{
    return source.GetGCPs();
}

std::vector<float> impliedvoids(GDALRasterBand& band)
{
    if ((band.GetMaskFlags() & GMF_ALL_VALID) == 0)
        return {};
    std::vector<float> found;
    std::vector<float> row(static_cast<std::size_t>(band.GetXSize()));
    for (const int y : {0, band.GetYSize() - 1}) {
        if (band.RasterIO(GF_Read, 0, y, band.GetXSize(), 1, row.data(), band.GetXSize(), 1,
                          GDT_Float32, 0, 0, nullptr) != CE_None)
            continue;
        for (const float number : customaryvoids) {
            const std::array<float, 2> pair{number, number};
            const auto at = std::search(row.begin(), row.end(), pair.begin(), pair.end());
            if (at != row.end() && std::find(found.begin(), found.end(), number) == found.end())
                found.push_back(number);
        }
    }
    return found;
}
