#include "radio/paint/profilescale.h"

#include "base/numbers.h"
#include "radio/earth.h"

#include <algorithm>

QPointF GraphScale::at(double x, double y, const QSizeF& size) const
{
    return {(x - left) / width * size.width(), (y - top) / height * size.height()};
}

double GraphScale::xat(double pixel, double picturewidth) const
{
    return left + pixel / picturewidth * width;
}

GraphScale profilescale(const LinkStudy& study)
{
    const DrawnHeights heights = drawnheights(study);
    const double range_m = heights.high - heights.low;
    const double n = smax(study.link.profile.intervals(), 1);
    return {-sidemargin * n, (1 + 2 * sidemargin) * n, heights.high + 0.375 * range_m,
            -1.5 * range_m};
}

DrawnHeights drawnheights(const LinkStudy& study)
{
    constexpr double leastrange_m = 50;
    const Profile& profile = study.link.profile;
    const LinkAnalysis& analysis = study.analysis;
    DrawnHeights heights{double{profile.pathmin}, double{profile.pathmax}};
    if (heights.high - heights.low < leastrange_m)
        heights.high += leastrange_m;
    heights.high = std::max({heights.high, analysis.top1, analysis.top2});
    heights.low = std::min({heights.low, analysis.top1, analysis.top2});
    heights.high += bulge(analysis.earth, 0.5, profile.distkm);
    return heights;
}

double bulgeat(const LinkStudy& study, double i)
{
    const Profile& profile = study.link.profile;
    return bulge(study.analysis.earth, i / profile.intervals(), profile.distkm);
}
