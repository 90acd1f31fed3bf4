#pragma once

#include "gis/module/session.h"

#include <cstdint>
#include <vector>

/// Heights outside these are no terrain, m.
inline constexpr double lowestterrain = -500;
inline constexpr double highestterrain = 9000;
/// Marks a void among heights.
inline constexpr float novalue = -32767;

/// How a band's numbers become heights.
struct HeightRule {
    double scale = 1;         ///< metres of one of the band's numbers
    double offset = 0;        ///< m
    std::vector<float> voids; ///< numbers that stand for voids though the file does not say so
};

/// A band of a raster as heights in metres: voids are `novalue`, whatever the raster marks them by,
/// as are heights that no terrain has. It lies where the raster lies.
class HeightDataset final : public GDALDataset
{
public:
    /// The raster must outlive it.
    HeightDataset(GDALDataset& raster, int band, const HeightRule& rule);

    /// Samples read so far that were no terrain's heights.
    std::int64_t refused() const;

    CPLErr GetGeoTransform(double* geotransform) override;
    const OGRSpatialReference* GetSpatialRef() const override;
    int GetGCPCount() override;
    const OGRSpatialReference* GetGCPSpatialRef() const override;
    const GDAL_GCP* GetGCPs() override;

private:
    GDALDataset& source;
};

/// Numbers that a band without a mark of its own uses for voids: those of long custom that stand
/// side by side in its first or last row.
std::vector<float> impliedvoids(GDALRasterBand& band);
