#include "gis/module/readraster.h"

#include "gis/module/place.h"
#include "gis/module/warp.h"

#include <algorithm>
#include <array>
#include <cpl_string.h>
#include <gdal_utils.h>
#include <ogr_spatialref.h>

namespace
{
/// A raster as another: GDAL's own translation, in memory.
Dataset translated(const std::string& file, GDALDataset& raster,
                   const std::vector<std::string>& arguments)
{
    CPLStringList list;
    for (const std::string& argument : arguments)
        list.AddString(argument.c_str());
    GDALTranslateOptions* const options = GDALTranslateOptionsNew(list.List(), nullptr);
    Dataset result(GDALDataset::FromHandle(GDALTranslate("", &raster, options, nullptr)));
    GDALTranslateOptionsFree(options);
    if (result == nullptr)
        throw GisFailure(file, lastremark("cannot be read"));
    return result;
}

/// Number of the band that says where a raster has colours; 0: none.
int alphaband(GDALDataset& raster)
{
    for (int band = 1; band <= raster.GetRasterCount(); ++band)
        if (raster.GetRasterBand(band)->GetColorInterpretation() == GCI_AlphaBand)
            return band;
    return 0;
}

class OpenRaster final : public GisRaster
{
public:
    OpenRaster(const std::string& file, const RasterOptions& options)
        : name(file), dataset(openfile(file, options.crs))
    {
        const Place place = placeof(file, *dataset);
        GDALRasterBand& first = *dataset->GetRasterBand(1);
        told.columns = dataset->GetRasterXSize();
        told.rows = dataset->GetRasterYSize();
        told.bands = dataset->GetRasterCount();
        told.box = place.box;
        told.spacing = place.spacing;
        const OGRSpatialReference* const system = dataset->GetSpatialRef() != nullptr
                                                      ? dataset->GetSpatialRef()
                                                      : dataset->GetGCPSpatialRef();
        const char* const systemname = system != nullptr ? system->GetName() : nullptr;
        told.crs = systemname != nullptr ? systemname : "";
        told.driver = dataset->GetDriver() != nullptr ? dataset->GetDriver()->GetDescription() : "";
        told.unit = first.GetUnitType();
        told.bytes = first.GetRasterDataType() == GDT_Byte;
        told.palette = first.GetColorInterpretation() == GCI_PaletteIndex;
        told.overviews = first.GetOverviewCount();
    }

    const RasterInfo& info() const override { return told; }

    bool readvalues(const GeoBox& window, int columns, int rows, int band, Resampling resampling,
                    float nodata, std::span<float> values, const GisProgress& progress,
                    std::string& why) override
    {
        return guarded(why, [&] {
            if (band < 1 || band > told.bands)
                throw GisFailure(name, "has no such band");
            const Dataset one =
                translated(name, *dataset, {"-of", "VRT", "-b", std::to_string(band)});
            const Dataset target = frame(window, columns, rows, 1, GDT_Float32);
            target->GetRasterBand(1)->SetNoDataValue(static_cast<double>(nodata));
            target->GetRasterBand(1)->Fill(static_cast<double>(nodata));
            warp(name, *one, *target, resampling, true, progress);
            take(*target, 1, GDT_Float32, values.data(), sizeof(float), columns, rows);
        });
    }

    bool readcolours(const GeoBox& window, int columns, int rows, Resampling resampling,
                     std::span<std::uint32_t> colours, const GisProgress& progress,
                     std::string& why) override
    {
        return guarded(why, [&] {
            const Dataset coloured = ascolours();
            const int count = alphaband(*coloured) > 0 ? coloured->GetRasterCount() - 1
                                                       : coloured->GetRasterCount();
            const Dataset target = frame(window, columns, rows, count + 1, GDT_Byte);
            target->GetRasterBand(count + 1)->SetColorInterpretation(GCI_AlphaBand);
            warp(name, *coloured, *target, told.palette ? Resampling::nearest : resampling, true,
                 progress);
            // A pixel in memory is blue, green, red, alpha.
            auto* const bytes = reinterpret_cast<std::uint8_t*>(colours.data());
            for (int channel = 0; channel < 3; ++channel)
                take(*target, count == 1 ? 1 : 3 - channel, GDT_Byte, bytes + channel, 4, columns,
                     rows);
            take(*target, count + 1, GDT_Byte, bytes + 3, 4, columns, rows);
        });
    }

private:
    template <typename Work> static bool guarded(std::string& why, const Work& work)
    {
        const GdalSession session;
        try {
            work();
            return true;
        } catch (const std::exception& error) {
            why = error.what();
            return false;
        }
    }

    static Dataset frame(const GeoBox& window, int columns, int rows, int bands, GDALDataType type)
    {
        Dataset target = memoryraster(columns, rows, bands, type);
        placeindegrees(*target, window.west, window.north, (window.east - window.west) / columns,
                       (window.north - window.south) / rows);
        return target;
    }

    void take(GDALDataset& target, int band, GDALDataType type, void* pixels, GSpacing step,
              int columns, int rows) const
    {
        if (target.GetRasterBand(band)->RasterIO(GF_Read, 0, 0, columns, rows, pixels, columns,
                                                 rows, type, step, step * columns,
                                                 nullptr) != CE_None)
            throw GisFailure(name, lastremark("cannot be read"));
    }

    /// The raster as one grey band or red, green and blue in bytes, perhaps with an alpha.
    Dataset ascolours() const
    {
        std::vector<std::string> arguments{"-of", "VRT"};
        const auto add = [&arguments](std::initializer_list<const char*> more) {
            arguments.insert(arguments.end(), more.begin(), more.end());
        };
        const int alpha = alphaband(*dataset);
        const bool colour = told.bands - (alpha > 0 ? 1 : 0) >= 3;
        if (told.palette) {
            add({"-expand", "rgba"});
        } else {
            for (int band = 1; band <= (colour ? 3 : 1); ++band)
                add({"-b", std::to_string(band).c_str()});
            if (alpha > 0)
                add({"-b", std::to_string(alpha).c_str()});
        }
        if (!told.bytes)
            add({"-ot", "Byte", "-scale"});
        return translated(name, *dataset, arguments);
    }

    std::string name;
    Dataset dataset;
    RasterInfo told;
};
} // namespace

std::unique_ptr<GisRaster> opengisraster(const std::string& file, const RasterOptions& options,
                                         std::string& why)
{
    const GdalSession session;
    try {
        return std::make_unique<OpenRaster>(file, options);
    } catch (const std::exception& error) {
        why = error.what();
        return nullptr;
    }
}
