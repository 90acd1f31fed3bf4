#include "radio/distribution.h"

#include "base/numbers.h"

#include <algorithm>
#include <cmath>

namespace
{
/// Percentages of the mean and of one standard deviation from it.
constexpr double meanpercent = 50;
constexpr double deviationpercent = 84.1;

/// Loss at the link's far end with all three percentages at this one.
double lossat(double percent, Link& link)
{
    LRRecord& record = link.record;
    record.ptime = record.ploc = record.psit = percent;
    link.losses.resize(link.profile.elevations_m.size());
    lrpath(link.profile.elevations_m, link.profile.spacing_m, record, link.losses);
    return record.lurban + record.loss;
}

/// The axis of the chart. Its margins come from the whole loss at one deviation, not from the
/// deviation, which leaves wide room on both sides of the curve for the texts.
void layaxis(Distribution& result)
{
    const auto [least, most] =
        std::minmax({result.gain12, result.need, result.mean, result.spread});
    result.lo = least - 0.5 * smax(most - least, 2 * result.spread);
    result.hi = most + 0.5 * smax(most - result.lo, result.spread);
}
} // namespace

double Distribution::deviation() const
{
    return smax(1.0, spread - mean);
}

double Distribution::density(double loss) const
{
    const double deviations = (loss - mean) / deviation();
    return std::exp(-0.5 * deviations * deviations);
}

std::optional<Distribution> distribution(const NetworkTables& tables, const MapGrid& map, int a,
                                         int b, int net, std::int16_t interference,
                                         LinkStudy& study)
{
    Link& link = study.link;
    const Unit& left = tables.unit(a);
    const Unit& right = tables.unit(b);
    if (!study.done || net < 1 || !std::isfinite(link.record.freq))
        return std::nullopt;
    if (cutprofile(map, left, right, link.profile) < 1)
        return std::nullopt;
    setends(left, right, link.profile);
    Distribution result;
    result.gain12 = link.gain12;
    result.need = link.record.loss;
    link.record.interf = interference;
    link.record.startpt = link.profile.intervals();
    result.mean = lossat(meanpercent, link);
    result.spread = lossat(deviationpercent, link);
    layaxis(result);
    link.record.loss = result.need;
    return result;
}
