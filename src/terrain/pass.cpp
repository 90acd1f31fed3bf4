#include "terrain/pass.h"

#include "base/hooks.h"
#include "base/numbers.h"
#include "base/operation.h"
#include "base/session.h"
#include "engine/tiles/getmapstat.h"
#include "terrain/extraction.h"
#include "terrain/jobs.h"
#include "terrain/mapgrid.h"

#include <algorithm>
#include <cmath>

bool ignoremissing = false;

PassFrame passframe()
{
    mapframe(mapgrid);
    PassFrame frame;
    frame.west = static_cast<double>(mapgrid.maplon[0]);
    frame.east = static_cast<double>(mapgrid.maplon[2]);
    frame.south = static_cast<double>(mapgrid.maplat[2]);
    frame.north = static_cast<double>(mapgrid.maplat[0]);
    const double dlon = frame.east - frame.west;
    const double dlat = frame.north - frame.south;
    if (std::isfinite(dlon) && std::isfinite(dlat) && dlon > 0 && dlat > 0) {
        frame.columns = mapgrid.upperx() / dlon;
        frame.rows = mapgrid.uppery() / dlat;
    }
    return frame;
}

double PassFrame::share(double left, double bottom, double width, double height) const
{
    const double across = std::min(east, left + width) - std::max(west, left);
    const double up = std::min(north, bottom + height) - std::max(south, bottom);
    return std::max(0.0, across / (east - west)) * std::max(0.0, up / (north - south));
}

HeightTable passtable(TileTally& tally)
{
    return {mapgrid.samples, mapgrid.width, mapgrid.height, &tally};
}

CellRange cellrange(const PassFrame& frame)
{
    if (!frame.usable())
        return {0, -1, 0, -1, 0};
    // Frames near a pole may go round the earth many times; the numbers stay whole all the same.
    constexpr double most = 1e6;
    const auto whole = [](double degrees, double lowest, double highest) {
        return static_cast<int>(std::clamp(std::floor(degrees), lowest, highest));
    };
    CellRange cells{};
    cells.west = whole(frame.west, -most, most);
    cells.east = whole(frame.east, -most, most);
    cells.south = static_cast<int>(std::max(-90.0, std::floor(frame.south)));
    cells.north = static_cast<int>(std::min(89.0, std::floor(frame.north)));
    cells.count = (cells.north - cells.south + 1) * (cells.east - cells.west + 1);
    return cells;
}

int wrapdegrees(int lon)
{
    return ((lon + 180) % 360 + 360) % 360 - 180;
}

std::string sourceroot(std::size_t index)
{
    std::string root = session.drvpath.at(index);
    if (root.size() == 1 && root != "/" && root != ".")
        root += ":";
    if (!root.ends_with('/') && !root.ends_with('\\'))
        root += '/';
    return root;
}

static Answer askmissing(const std::string& name, const std::string& path)
{
    return hooks.askuser({"Fichier " + name + " non trouvé.\n" + lowercase(path),
                          Question::Buttons::abortretryignore, Question::Icon::exclamation});
}

static void note(BuildReport* report, const WantedTile& tile, const std::string& name,
                 TileRead read, const TileTally& tally)
{
    if (report == nullptr)
        return;
    report->filled += tally.pixels - tally.voids;
    if (read == TileRead::missing)
        report->lacks.push_back({TileLack::Kind::missing, name, tile.share});
    else if (read == TileRead::damaged)
        report->lacks.push_back({TileLack::Kind::damaged, name, tile.share});
    else if (tally.voids > 0)
        report->lacks.push_back(
            {TileLack::Kind::voids, name,
             static_cast<double>(tally.voids) / static_cast<double>(tally.pixels)});
}

void readtile(const WantedTile& tile, const TileAttempt& attempt, BuildReport* report)
{
    while (opbusy != 0) {
        TileTally tally;
        std::string name = tile.name;
        const TileRead read = attempt(tally, name);
        const bool asked = read != TileRead::done && !ignoremissing;
        const Answer answer = asked ? askmissing(tile.source, tile.path) : Answer::ignore;
        if (answer == Answer::abort)
            opbusy = 0;
        if (answer == Answer::retry)
            continue;
        note(report, tile, name, read, tally);
        return;
    }
}

int BuildReport::lacking() const
{
    return static_cast<int>(std::count_if(lacks.begin(), lacks.end(), [](const TileLack& lack) {
        return lack.kind != TileLack::Kind::voids;
    }));
}

static void statisticspass()
{
    beginop(statisticsjob(mapgrid));
    MapStatistics statistics{9999, -999, mapgrid.record.hmoy};
    // The bar counts columns; the kernel goes row by row.
    const double columnsperrow = static_cast<double>(mapgrid.width) / std::max(1, mapgrid.height);
    getmapstat({mapgrid.samples, mapgrid.width, mapgrid.height}, statistics,
               [columnsperrow](int row) {
                   return opstep(static_cast<std::int32_t>(row * columnsperrow)) != 0;
               });
    MapRecord& record = mapgrid.record;
    record.hmin = statistics.hmin;
    record.hmax = statistics.hmax;
    record.hmoy = statistics.hmoy;
    record.minx = record.hmin;
    record.maxx = record.hmax;
    hooks.mapchanged();
}

bool endpass()
{
    if (opbusy != 0)
        statisticspass();
    const bool complete = opbusy != 0;
    endop();
    return complete;
}
