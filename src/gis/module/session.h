#pragma once

#include <cpl_error.h>
#include <gdal_priv.h>
#include <memory>
#include <stdexcept>
#include <string>

/// What cannot be done: the file, and why.
class GisFailure : public std::runtime_error
{
public:
    GisFailure(std::string failed, const std::string& why)
        : std::runtime_error(why), what_failed(std::move(failed))
    {
    }
    std::string what_failed;
};

/// The library is ready and keeps its remarks to itself for as long as this lives.
class GdalSession
{
public:
    GdalSession();
    ~GdalSession();
    GdalSession(const GdalSession&) = delete;
    GdalSession& operator=(const GdalSession&) = delete;
};

/// The library's last remark; `otherwise` where it made none.
std::string lastremark(const std::string& otherwise);

/// Closes a dataset.
struct CloseDataset {
    void operator()(GDALDataset* dataset) const { GDALClose(dataset); }
};
using Dataset = std::unique_ptr<GDALDataset, CloseDataset>;

/// A file in memory, removed at the end.
class MemoryFile
{
public:
    /// A name that no other has, with this ending.
    explicit MemoryFile(const std::string& ending);
    ~MemoryFile();
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    const std::string& name() const { return path; }
    /// Its bytes, or nothing when it was not made.
    std::string content() const;

private:
    std::string path;
};

/// An empty raster in memory with bands of a type.
Dataset memoryraster(int columns, int rows, int bands, GDALDataType type);
/// Places it: degrees of WGS 84, the first pixel's outer corner in the north-west.
void placeindegrees(GDALDataset& raster, double west, double north, double dx, double dy);
