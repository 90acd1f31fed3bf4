#include "gis/module/warp.h"

#include <cpl_string.h>
#include <gdal_utils.h>

namespace
{
int CPL_STDCALL report(double share, const char*, void* progress)
{
    const auto& receiver = *static_cast<const GisProgress*>(progress);
    return !receiver || receiver(share) ? TRUE : FALSE;
}

struct FreeOptions {
    void operator()(GDALWarpAppOptions* options) const { GDALWarpAppOptionsFree(options); }
};

const char* nameof(Resampling resampling)
{
    switch (resampling) {
    case Resampling::nearest:
        return "near";
    case Resampling::average:
        return "average";
    case Resampling::bilinear:
        break;
    }
    return "bilinear";
}
} // namespace

void warp(const std::string& file, GDALDataset& source, GDALDataset& target, Resampling resampling,
          bool overviews, const GisProgress& progress)
{
    CPLStringList arguments;
    for (const char* argument : {"-r", nameof(resampling), "-ovr", overviews ? "AUTO" : "NONE",
                                 "-et", "0.05", "-wm", "64"})
        arguments.AddString(argument);
    const std::unique_ptr<GDALWarpAppOptions, FreeOptions> options(
        GDALWarpAppOptionsNew(arguments.List(), nullptr));
    GDALWarpAppOptionsSetProgress(options.get(), report, const_cast<GisProgress*>(&progress));
    GDALDatasetH handle = &source;
    int usage = FALSE;
    CPLErrorReset();
    if (GDALWarp(nullptr, &target, 1, &handle, options.get(), &usage) == nullptr ||
        CPLGetLastErrorType() >= CE_Failure)
        throw GisFailure(file, lastremark("cannot be read"));
}
