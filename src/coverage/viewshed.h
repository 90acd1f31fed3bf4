#pragma once

#include "coverage/radar.h"
#include "coverage/sweep.h"

#include <optional>
#include <span>
#include <vector>

/// All that a visual coverage is asked for.
struct ViewOrder {
    SweepBounds bounds;
    float sensorh = 2;         ///< m above the ground
    float targeth = 2;         ///< m above the ground, or above the sea
    bool terrainfollow = true; ///< the target follows the ground ("Rase motte")
    std::optional<RadarDiagram> radar;
};

/// A sweep of lines of sight made ready.
struct ViewSweep {
    const MapGrid* map = nullptr;
    ViewOrder order;
    SweepCentre centre;
    std::vector<double> azimuths; ///< of the radials, degrees
    double sensor_m = 0;          ///< height of the sensor above the sea
    double step_m = 0;            ///< length of a step of one cell
    int samples = 0;              ///< one a cell, as far as the map can reach
    int first = 1;                ///< samples before it are not painted
    std::vector<double> drop_m;   ///< fall of the earth's surface at samples 1, 2, ...
};

/// Makes a sweep ready around a sensor on ground of a given height. Nothing when the map has no
/// extent or the centre lies off it.
std::optional<ViewSweep> prepareview(const MapGrid& map, const ViewOrder& order,
                                     const SweepCentre& centre, float ground_m);

/// Samples of radial k where the target is seen (and lies in the radar's beam), nearest first. The
/// ground of a sample hides what stands behind it at a lower angle, and its own ground counts. The
/// earth falls off with its true radius; there is no refraction.
void viewradial(const ViewSweep& sweep, int k, std::vector<int>& seen);

/// Samples that follow each other along a radial.
struct SampleRun {
    int first = 0;
    int last = 0;
    bool operator==(const SampleRun&) const = default;
};

/// The whole sweep.
///   paint  takes the sides of a radial's sectors, one pixel a step, and the seen samples; the left
///          side is the right one of the radial before
///   step   called behind every tenth radial with its number; false stops the sweep at once
/// Returns the sum of the seen samples' indices.
std::int64_t
runview(const ViewSweep& sweep,
        const std::function<void(const SectorSides&, std::span<const SampleRun>)>& paint,
        const std::function<bool(int k)>& step);

/// Seen area in km² as the polar sum of ring sectors.
double seenarea(const ViewSweep& sweep, std::int64_t rings);
