#include "radio/readout.h"

#include "base/numbers.h"
#include "radio/earth.h"

#include <cmath>

namespace
{
/// Reception at a sample: the level from left to right, its reading, and the reading of the other
/// direction.
void readlevels(const Link& link, double loss, LinkReadout& readout)
{
    const double level_db = link.gain12 - loss;
    const auto freq = static_cast<float>(link.record.freq);
    const std::int16_t s = sunits(static_cast<float>(level_db), freq);
    readout.text +=
        "Rx:" + formatnumber("0.00dB  ", level_db) + "( S " + formatnumber("0", smin<double>(9, s));
    if (s > 9)
        readout.text += " + " + formatnumber("0", s);
    readout.text += " ) ";
    readout.meter12 = s;
    readout.meter21 = sunits(static_cast<float>(link.gain21 - loss), freq);
}

/// A station's longitude on the same side of the date line as the map.
double onmapside(const MapGrid& map, float lon)
{
    constexpr double turn = 360;
    if (map.maplon[1] > 180 && lon < 0)
        return double{lon} + turn;
    if (map.maplon[0] < -180 && lon > 0)
        return double{lon} - turn;
    return double{lon};
}

void readplace(const Unit& left, const Unit& right, const MapGrid& map, double f,
               LinkReadout& readout)
{
    const double r = 1 - f;
    readout.lon = static_cast<float>(onmapside(map, right.lon) * f + onmapside(map, left.lon) * r);
    readout.lat = static_cast<float>(double{right.lat} * f + double{left.lat} * r);
}
} // namespace

LinkReadout readlink(const LinkStudy& study, const NetworkTables& tables, const MapGrid& map,
                     double x)
{
    const Link& link = study.link;
    const Profile& profile = link.profile;
    const int n = profile.intervals();
    LinkReadout readout;
    if (!study.done || n < 1)
        return readout;
    readout.x = x > 0 ? smin(static_cast<double>(n), x) : 0;
    const double f = readout.x / n;
    const double d_km = n * profile.spacing_m / 1000;
    readout.km = f * d_km;
    const int i = static_cast<int>(roundtoeven(readout.x));
    const double ray =
        (link.record.h2 + profile.sample(n)) * f + (link.record.h1 + profile.sample(0)) * (1 - f);
    const double clearance = ray - profile.sample(i);
    readout.text = " Distance:" + formatnumber("0.00km  ", readout.km) +
                   (clearance > 0 ? "Dégagement:" : "Obstruction:") +
                   formatnumber("0.00m  ", std::abs(clearance));
    if (const double loss = link.lossat(i); loss > 0) {
        const double radius = fresnelradius(f, d_km, link.record.freq);
        // Without a frequency there is no zone to measure by.
        if (f > 0 && f < 1 && radius > 0 && std::isfinite(radius))
            readout.text += formatnumber("0.0", std::abs(clearance) / radius) + "F1  ";
        readlevels(link, loss, readout);
    }
    readplace(tables.unit(study.a), tables.unit(study.b), map, f, readout);
    return readout;
}
