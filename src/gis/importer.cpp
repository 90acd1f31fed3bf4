#include "gis/importer.h"

#include "gis/raster.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace
{
// Whole turns that may lie between a cell's longitude and a raster's, degrees.
constexpr int turns[] = {-360, 0, 360};

/// A raster and the shift that brings the cell to it.
struct Layer {
    const Raster* raster;
    int shift;
};

int wrapped(int lon)
{
    return ((lon + 180) % 360 + 360) % 360 - 180;
}

/// The cells that the rasters touch, with the level that the finest of those reaching into each
/// asks for; 0 where none does more than touch the edge.
std::map<ImportCell, int> cellsof(const std::vector<Raster>& rasters)
{
    std::map<ImportCell, int> levels; // by cells of level 0
    for (const Raster& raster : rasters) {
        const int south = std::max(-90, static_cast<int>(std::ceil(raster.south)) - 1);
        const int north = std::min(89, static_cast<int>(std::floor(raster.north)));
        for (int lon = static_cast<int>(std::ceil(raster.west)) - 1;
             lon <= static_cast<int>(std::floor(raster.east)); ++lon)
            for (int lat = south; lat <= north; ++lat) {
                const ImportCell cell{wrapped(lon), lat, raster.level()};
                int& level = levels[{cell.lon, cell.lat, 0}];
                if (raster.reachesinto(cell, lon - cell.lon))
                    level = std::max(level, cell.level);
            }
    }
    return levels;
}

// Lines at the edge of a cell that do not make a new one: a raster's outermost pixels, resampled,
// spill over its own edge by so much.
constexpr int rim = 3;

/// True when a sample further than `margin` lines from the edge has a height.
bool hasheights(CellSamples& samples, int margin)
{
    const ImportCell& cell = samples.cell;
    for (int row = margin; row < cell.rows() - margin; ++row)
        for (int column = margin; column < cell.columns() - margin; ++column)
            if (samples.at(column, row) > CellSamples::novalue)
                return true;
    return false;
}

/// Fills what has no height yet from a cell that exists.
void layunder(const Raster& old, CellSamples& samples)
{
    CellSamples below(samples.cell);
    layraster(old, 0, below, [](double) {});
    for (std::size_t i = 0; i < samples.heights.size(); ++i)
        if (samples.heights[i] <= CellSamples::novalue)
            samples.heights[i] = below.heights[i];
}

class Importer
{
public:
    Importer(const ImportOrder& given, ImportResult& given_result)
        : order(given), result(given_result)
    {
        for (const std::string& file : order.files)
            rasters.push_back(openraster(file));
        // Finer over coarser; of equal ones the later over the earlier.
        std::stable_sort(rasters.begin(), rasters.end(),
                         [](const Raster& a, const Raster& b) { return a.level() < b.level(); });
    }

    void run()
    {
        const auto cells = cellsof(rasters);
        double done = 0;
        for (const auto& [place, level] : cells) {
            makecell({place.lon, place.lat, level}, [&](double share) {
                order.progress((done + share) / static_cast<double>(cells.size()));
            });
            ++done;
        }
        if (result.cells.empty())
            throw ImportFailure(order.files.front(), "holds no heights");
    }

private:
    std::optional<Raster> existing(ImportCell cell, int level) const
    {
        cell.level = level;
        const auto path = order.find(cell.name());
        return path ? std::optional(openraster(*path)) : std::nullopt;
    }

    void makecell(ImportCell cell, const std::function<void(double)>& progress)
    {
        const std::optional<Raster> coarse = existing(cell, 1);
        const std::optional<Raster> fine = existing(cell, 2);
        // The program takes the finer of two cells; so that is the one to bring up to date.
        if (fine || (cell.level == 0 && coarse))
            cell.level = fine ? 2 : 1;
        if (cell.level == 0)
            return; // nothing but an edge

        std::vector<Layer> layers;
        for (const Raster& raster : rasters)
            for (const int shift : turns)
                if (raster.touches(cell, shift))
                    layers.push_back({&raster, shift});
        CellSamples samples(cell);
        double done = 0;
        for (const Layer& layer : layers) {
            layraster(*layer.raster, layer.shift, samples, [&](double share) {
                progress((done + share) / static_cast<double>(layers.size()));
            });
            ++done;
        }
        if (!hasheights(samples, (cell.level == 2 ? fine : coarse) ? 0 : rim))
            return;
        for (const auto* old : {&fine, &coarse})
            if (*old && (cell.level == 2 || old == &coarse))
                layunder(**old, samples);
        writecell(samples);
    }

    void writecell(CellSamples& samples)
    {
        const std::string name = samples.cell.name();
        if (!order.write(name, cellbytes(samples)))
            throw ImportFailure(name, "cannot be written");
        result.cells.push_back(name);
    }

    const ImportOrder& order;
    ImportResult& result;
    std::vector<Raster> rasters;
};
} // namespace

void importrasters(const ImportOrder& order, ImportResult& result)
{
    GDALAllRegister();
    CPLSetErrorHandler(CPLQuietErrorHandler);
    try {
        Importer(order, result).run();
    } catch (const ImportFailure& failure) {
        result.what = failure.what_failed;
        result.why = failure.what();
    } catch (const std::exception& error) {
        result.what = "import";
        result.why = error.what();
    }
}
