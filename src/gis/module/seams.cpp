#include "gis/module/seams.h"

#include <cmath>

namespace
{
/// Samples of a line along one edge, and where they lie in the cell.
struct Edge {
    int x, y;   ///< first sample; rows from the north
    int dx, dy; ///< to the next
    int count;
};

/// The edge of a cell of so many lines towards a neighbour; a corner is one sample.
///   east, north   -1, 0 or 1
Edge edgeto(int columns, int rows, int east, int north)
{
    const int x = east > 0 ? columns - 1 : 0;
    const int y = north < 0 ? rows - 1 : 0;
    if (east != 0 && north != 0)
        return {x, y, 0, 0, 1};
    return north != 0 ? Edge{0, y, 1, 0, columns} : Edge{x, 0, 0, 1, rows};
}

bool hasvoids(CellSamples& samples, const Edge& edge)
{
    for (int i = 0; i < edge.count; ++i)
        if (samples.at(edge.x + i * edge.dx, edge.y + i * edge.dy) <= novalue)
            return true;
    return false;
}

/// The samples of a raster's edge.
std::vector<float> readedge(const Raster& raster, const Edge& edge)
{
    std::vector<float> line(static_cast<std::size_t>(edge.count));
    const int width = edge.dx > 0 ? edge.count : 1;
    const int height = edge.dy > 0 ? edge.count : 1;
    if (raster.heights->GetRasterBand(1)->RasterIO(GF_Read, edge.x, edge.y, width, height,
                                                   line.data(), width, height, GDT_Float32, 0, 0,
                                                   nullptr) != CE_None)
        throw GisFailure(raster.file, lastremark("cannot be read"));
    return line;
}

/// The height at a share of a line's length, linear; beside a void the nearest sample.
float along(const std::vector<float>& line, double share)
{
    const double place = share * static_cast<double>(line.size() - 1);
    const auto below = static_cast<std::size_t>(place);
    const std::size_t above = std::min(below + 1, line.size() - 1);
    const double part = place - static_cast<double>(below);
    if (line[below] <= novalue || line[above] <= novalue)
        return line[part < 0.5 ? below : above];
    return static_cast<float>(static_cast<double>(line[below]) * (1 - part) +
                              static_cast<double>(line[above]) * part);
}

std::optional<Raster> finest(const FindCell& find, ImportCell cell)
{
    for (cell.level = 2; cell.level > 0; --cell.level)
        if (const auto path = find(cell.name()))
            return opencell(*path);
    return {};
}

void takeedge(const FindCell& find, CellSamples& samples, int east, int north)
{
    const ImportCell& cell = samples.cell;
    const Edge edge = edgeto(cell.columns(), cell.rows(), east, north);
    const int lat = cell.lat + north;
    if (lat < -90 || lat > 89 || !hasvoids(samples, edge))
        return;
    const auto neighbour = finest(find, {wrapped(cell.lon + east), lat, 0});
    if (!neighbour)
        return;
    GDALDataset& raster = *neighbour->heights;
    const std::vector<float> line = readedge(
        *neighbour, edgeto(raster.GetRasterXSize(), raster.GetRasterYSize(), -east, -north));
    for (int i = 0; i < edge.count; ++i) {
        float& height = samples.at(edge.x + i * edge.dx, edge.y + i * edge.dy);
        if (height <= novalue)
            height = along(line, edge.count > 1 ? i / (edge.count - 1.0) : 0);
    }
}
} // namespace

int wrapped(int lon)
{
    return ((lon + 180) % 360 + 360) % 360 - 180;
}

void takeedges(const FindCell& find, CellSamples& samples)
{
    for (const bool corners : {false, true}) // what an edge has, its corner has from the same cell
        for (const int east : {-1, 0, 1})
            for (const int north : {-1, 0, 1})
                if ((east != 0 || north != 0) && (east != 0 && north != 0) == corners)
                    takeedge(find, samples, east, north);
}
