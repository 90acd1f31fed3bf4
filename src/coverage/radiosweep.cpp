#include "coverage/radiosweep.h"

#include "base/numbers.h"

#include <algorithm>
#include <cmath>

namespace
{
/// Radials that are computed together before they are painted in order.
constexpr int chunk = 10;

bool isslot(int number, int most)
{
    return number >= 1 && number <= most;
}

/// Range in km, samples and steps of all radials.
void setgeometry(const MapGrid& map, RadioSweep& sweep)
{
    const double size_km = double{map.record.mapsize};
    const double height = map.uppery();
    const double range_km =
        smin(double{sweep.order.bounds.rmax}, reachcells(map, sweep.centre) * size_km / height);
    const double cells = range_km * height / size_km;
    sweep.samples = static_cast<int>(roundtoeven(smax(2.0, smin(double{mostsamples}, cells))));
    sweep.d_cells = cells / sweep.samples;
    sweep.spacing_m = sweep.d_cells * size_km / height * 1000;
    sweep.nearlimit = double{sweep.order.bounds.rmin} / sweep.d_cells / size_km * height;
}

/// The centre's ground and the map's cells along a ray, as the model takes a profile.
void cutradial(const RadioSweep& sweep, double azimuth_deg, int count, Link& link)
{
    const double angle = (azimuth_deg - 90) * degree;
    const double ux = sweep.d_cells * std::cos(angle);
    const double uy = sweep.d_cells * std::sin(angle);
    link.profile.elevations_m.resize(static_cast<std::size_t>(count) + 1);
    link.profile.spacing_m = sweep.spacing_m;
    link.profile.sample(0) = double{sweep.elevation_m};
    for (int c = 1; c <= count; ++c) {
        const int column = nearestcell(c * ux + sweep.centre.x0);
        const int row = sweep.map->uppery() - nearestcell(c * uy + sweep.centre.y0);
        link.profile.sample(c) = sweep.map->at(column, row);
    }
}

/// Colour of a level in the rainbow. False where the two limits leave no scale to divide by.
bool rainbowsample(const RadioSweep& sweep, double level_db, RadioSample& sample)
{
    const auto& [low, high] = sweep.margins;
    if (sweep.order.unit == LevelUnit::sunit) {
        const Levels& levels = sweep.order.levels;
        const int v = sunits(static_cast<float>(level_db - high), sweep.freq_mhz);
        sample.fill = 0;
        if (v == 0)
            return true;
        const double width = double{levels.high} - double{levels.low};
        const double index = roundtoeven((v - double{levels.low}) / width * 10 + 1);
        sample.fill = static_cast<std::uint8_t>(smin(smax(index, 0.0), 11.0));
        sample.counted = true;
        return width != 0;
    }
    const double index = std::floor((level_db - low) / (high - low) * 10 + 1);
    sample.fill = static_cast<std::uint8_t>(smin(smax(index, 0.0), 11.0));
    sample.counted = sample.fill > 0;
    return high != low;
}

/// Judges one level. False when the rainbow has no scale.
bool judgesample(const RadioSweep& sweep, double level_db, bool painted, RadioSample& sample)
{
    const CoverageOrder& order = sweep.order;
    sample = {};
    sample.strong = order.curve && level_db > sweep.margins.low;
    if (!painted || !order.surface)
        return true;
    if (order.rainbow)
        return rainbowsample(sweep, level_db, sample);
    if (level_db >= sweep.margins.low && level_db < sweep.margins.high) {
        sample.fill = sectorfill::plain;
        sample.counted = true;
    }
    return true;
}
} // namespace

std::optional<RadioSweep> preparesweep(const NetworkTables& tables, const MapGrid& map,
                                       const CoverageOrder& order, const SweepCentre& centre,
                                       std::int16_t interference)
{
    if (!isslot(order.net, MAXNET) || !isslot(order.centre, MAXUNIT) ||
        !isslot(order.mobile, MAXUNIT) || order.centre == order.mobile || !sweepable(map, centre))
        return std::nullopt;
    RadioSweep sweep;
    sweep.map = &map;
    sweep.order = order;
    sweep.centre = centre;
    sweep.interference = interference;
    sweep.net = tables.net(order.net);
    sweep.elevation_m = tables.unit(order.centre).elevation;
    setgeometry(map, sweep);
    if (!(sweep.d_cells > 0))
        return std::nullopt;
    sweep.azimuths = radialazimuths(order.bounds);

    setlink(tables, order.centre, order.mobile, order.net, sweep.link);
    if (!finitelink(sweep.link))
        return std::nullopt;
    sweep.gain_db = order.mobiletransmits ? sweep.link.gain21 : sweep.link.gain12;
    sweep.freq_mhz = static_cast<float>(sweep.link.record.freq);
    const int receiver = order.mobiletransmits ? order.centre : order.mobile;
    const int slot = sweep.net.systemof(receiver);
    const float threshold_dbm = isslot(slot, MAXSYSTEM) ? tables.system(slot).threshold : 0;
    sweep.margins = levelmargins(order.unit, order.levels, order.rainbow, sweep.link.record.freq,
                                 threshold_dbm);
    return sweep;
}

bool hasscale(const RadioSweep& sweep)
{
    const CoverageOrder& order = sweep.order;
    if (!order.surface || !order.rainbow)
        return true;
    return order.unit == LevelUnit::sunit ? order.levels.low != order.levels.high
                                          : sweep.margins.low != sweep.margins.high;
}

void sweepradial(const RadioSweep& sweep, int k, RadioRadial& radial)
{
    const double azimuth_deg = sweep.azimuths[static_cast<std::size_t>(k)];
    const double angle = (azimuth_deg - 90) * degree;
    const double half_deg = double{sweep.order.bounds.step} / 2;
    radial.failed = false;
    radial.sides = sectorsides(azimuth_deg, half_deg, sweep.d_cells);
    radial.count = samplesinside(*sweep.map, sweep.centre, sweep.d_cells * std::cos(angle),
                                 sweep.d_cells * std::sin(angle), sweep.samples);
    radial.nearlimit = smax(1.0, smin(radial.count - 1.0, sweep.nearlimit));
    if (radial.count == 0)
        return;

    Link link = sweep.link;
    cutradial(sweep, azimuth_deg, radial.count, link);
    linkmargin(sweep.net, false, sweep.interference, link);
    const double budget_db =
        double{patterngain(sweep.order.pattern, azimuth_deg, double{sweep.order.antaz})} +
        sweep.gain_db;
    for (int c = 1; c <= radial.count && !radial.failed; ++c) {
        const auto i = static_cast<std::size_t>(c);
        const double level_db = budget_db - link.losses[i];
        if (!judgesample(sweep, level_db, c > radial.nearlimit, radial.samples[i])) {
            radial.failed = true;
            radial.count = c - 1;
        }
    }
}

void joinradial(const RadioSweep& sweep, int k, const RadioRadial& radial, ContourState& state,
                std::vector<SectorPaint>& sectors)
{
    sectors.clear();
    bool last = false;
    for (int c = 1; c <= radial.count; ++c) {
        const auto i = static_cast<std::size_t>(c);
        const RadioSample& sample = radial.samples[i];
        if (c > radial.nearlimit) {
            SectorPaint sector;
            sector.fill = sample.fill;
            sector.across = sample.strong != last;
            sector.along = k > 0 && sample.strong != state.prev[i];
            if (sample.counted)
                state.rings += c;
            if (sector.fill != sectorfill::none || sector.across || sector.along) {
                sector.quad = sectorquad(radial.sides, sweep.centre, c);
                sectors.push_back(sector);
            }
        }
        state.prev[i] = sample.strong;
        last = sample.strong;
    }
    // The last sample of a whole radial keeps its state even when this radial ends before it.
    for (int c = radial.count + 1; c < sweep.samples; ++c)
        state.prev[static_cast<std::size_t>(c)] = false;
}

double coveredarea(const RadioSweep& sweep, std::int64_t rings)
{
    const double spacing_km = sweep.spacing_m / 1000;
    return double{sweep.order.bounds.step} * static_cast<double>(rings) * degree * spacing_km *
           spacing_km;
}

std::int64_t runsweep(const RadioSweep& sweep,
                      const std::function<void(std::span<const SectorPaint>)>& paint,
                      const std::function<bool(int k)>& step)
{
    std::vector<RadioRadial> radials(chunk);
    std::vector<SectorPaint> sectors;
    ContourState state;
    const auto radialof = [&](int k) -> RadioRadial& {
        return radials[static_cast<std::size_t>(k % chunk)];
    };
    sweepradials(
        static_cast<int>(sweep.azimuths.size()) - 1, chunk,
        [&](int k) { sweepradial(sweep, k, radialof(k)); },
        [&](int k) {
            joinradial(sweep, k, radialof(k), state, sectors);
            paint(sectors);
            return !radialof(k).failed && (k % 10 != 0 || step(k));
        });
    return state.rings;
}
