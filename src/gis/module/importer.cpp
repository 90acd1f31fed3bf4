#include "gis/module/importer.h"

#include "gis/module/seams.h"

#include <algorithm>
#include <cmath>
#include <fmt/format.h>
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

/// Cells by their place, with the level that the finest raster reaching into each asks for; 0 where
/// none does more than touch the edge.
using CellLevels = std::map<ImportCell, int>;

/// True when a cell reaches into bounds.
bool within(const GeoBox& bounds, const ImportCell& cell)
{
    if (cell.lat + 1 < bounds.south || cell.lat > bounds.north)
        return false;
    return std::any_of(std::begin(turns), std::end(turns), [&](int turn) {
        return cell.lon + turn + 1 >= bounds.west && cell.lon + turn <= bounds.east;
    });
}

void addcells(const Raster& raster, const std::optional<GeoBox>& bounds, CellLevels& levels)
{
    const GeoBox& box = raster.place.box;
    const int south = std::max(-90, static_cast<int>(std::ceil(box.south)) - 1);
    const int north = std::min(89, static_cast<int>(std::floor(box.north)));
    for (int lon = static_cast<int>(std::ceil(box.west)) - 1;
         lon <= static_cast<int>(std::floor(box.east)); ++lon)
        for (int lat = south; lat <= north; ++lat) {
            const ImportCell cell{wrapped(lon), lat, raster.level()};
            if (bounds && !within(*bounds, cell))
                continue;
            int& level = levels[{cell.lon, cell.lat, 0}];
            if (raster.reachesinto(cell, lon - cell.lon))
                level = std::max(level, cell.level);
        }
}

/// The cells that the rasters touch, and those around the ones that they reach into: neighbours
/// share their edges.
CellLevels cellsof(const std::vector<Raster>& rasters, const std::optional<GeoBox>& bounds)
{
    CellLevels levels;
    for (const Raster& raster : rasters)
        addcells(raster, bounds, levels);
    const CellLevels reached = levels;
    for (const auto& [cell, level] : reached)
        for (int east = -1; level > 0 && east <= 1; ++east)
            for (const int north : {-1, 0, 1})
                levels.try_emplace({wrapped(cell.lon + east), cell.lat + north, 0}, 0);
    return levels;
}

/// True when a sample further than `margin` lines from the edge has a height.
bool hasheights(CellSamples& samples, int margin)
{
    const ImportCell& cell = samples.cell;
    for (int row = margin; row < cell.rows() - margin; ++row)
        for (int column = margin; column < cell.columns() - margin; ++column)
            if (samples.at(column, row) > novalue)
                return true;
    return false;
}

class Importer
{
public:
    Importer(const ImportOrder& given, ImportResult& given_result)
        : order(given), result(given_result)
    {
        for (const std::string& file : order.files)
            rasters.push_back(openraster(file, order));
        // Finer over coarser; of equal ones the later over the earlier.
        std::stable_sort(rasters.begin(), rasters.end(),
                         [](const Raster& a, const Raster& b) { return a.level() < b.level(); });
    }

    void run()
    {
        const CellLevels cells = cellsof(rasters, order.bounds);
        double done = 0;
        // Edges come last, when the cells are there that they are taken from.
        for (const bool edges : {false, true})
            for (const auto& [place, level] : cells) {
                if ((level == 0) != edges)
                    continue;
                makecell({place.lon, place.lat, level}, [&](double share) {
                    order.progress((done + share) / static_cast<double>(cells.size()));
                });
                ++done;
            }
        tellrefused();
        if (result.cells.empty() && !order.ignoremissing)
            throw GisFailure(order.files.front(), "holds no heights");
    }

private:
    std::optional<Raster> existing(ImportCell cell, int level) const
    {
        cell.level = level;
        const auto path = order.find(cell.name());
        return path ? std::optional(opencell(*path)) : std::nullopt;
    }

    /// Lays all rasters over a cell. Returns the lines at its edge that do not make a new one.
    int layrasters(CellSamples& samples, const std::function<void(double)>& progress) const
    {
        std::vector<Layer> layers;
        int rim = 0;
        for (const Raster& raster : rasters)
            for (const int shift : turns)
                if (raster.touches(samples.cell, shift)) {
                    layers.push_back({&raster, shift});
                    rim = std::max(rim, raster.rim(samples.cell));
                }
        double done = 0;
        for (const Layer& layer : layers) {
            layraster(*layer.raster, layer.shift, order.bounds ? &*order.bounds : nullptr, samples,
                      [&](double share) {
                          progress((done + share) / static_cast<double>(layers.size()));
                      });
            ++done;
        }
        return rim;
    }

    void makecell(ImportCell cell, const std::function<void(double)>& progress)
    {
        const bool edgeonly = cell.level == 0;
        const std::optional<Raster> coarse = existing(cell, 1);
        const std::optional<Raster> fine = existing(cell, 2);
        // The program takes the finer of two cells; so that is the one to bring up to date.
        if (fine || (edgeonly && coarse))
            cell.level = fine ? 2 : 1;
        if (cell.level == 0)
            return; // nothing but an edge
        const Raster* const own =
            cell.level == 2 ? (fine ? &*fine : nullptr) : (coarse ? &*coarse : nullptr);

        CellSamples samples(cell);
        const int rim = layrasters(samples, progress);
        if (!edgeonly && !hasheights(samples, own != nullptr ? 0 : rim)) {
            order.say(cell.name(), "no heights in the cell; it is not written");
            return;
        }
        for (const auto* old : {&fine, &coarse})
            if (*old && (cell.level == 2 || old == &coarse))
                laycell(**old, samples);
        takeedges(order.find, samples);
        if (!edgeonly || changes(*own, samples))
            writecell(samples);
    }

    /// True when samples are others than those of a cell that exists.
    static bool changes(const Raster& own, const CellSamples& samples)
    {
        CellSamples before(samples.cell);
        laycell(own, before);
        return !std::equal(before.heights.begin(), before.heights.end(), samples.heights.begin(),
                           [](float a, float b) { return std::nearbyint(a) == std::nearbyint(b); });
    }

    void writecell(CellSamples& samples)
    {
        const std::string name = samples.cell.name();
        if (!order.write(name, cellbytes(samples)))
            throw GisFailure(name, "cannot be written");
        if (std::find(result.cells.begin(), result.cells.end(), name) == result.cells.end())
            result.cells.push_back(name);
        if (samples.voids() > 0)
            order.say(name, fmt::format("{:.3g} % of the cell is void", samples.voids() * 100));
    }

    void tellrefused() const
    {
        for (const Raster& raster : rasters)
            if (raster.heights->refused() > 0)
                order.say(raster.file,
                          fmt::format("{} heights below {} m or above {} m are taken for voids",
                                      raster.heights->refused(), lowestterrain, highestterrain));
    }

    const ImportOrder& order;
    ImportResult& result;
    std::vector<Raster> rasters;
};
} // namespace

void importrasters(const ImportOrder& order, ImportResult& result)
{
    const GdalSession session;
    try {
        Importer(order, result).run();
    } catch (const GisFailure& failure) {
        result.what = failure.what_failed;
        result.why = failure.what();
    } catch (const std::exception& error) {
        result.what = "import";
        result.why = error.what();
    }
}
