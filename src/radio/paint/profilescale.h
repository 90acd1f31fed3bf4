#pragma once

#include "radio/linkstudy.h"

#include <QPointF>
#include <QSizeF>

/// What a profile shows beyond either station, in lengths of the path.
inline constexpr double sidemargin = 0.05;

/// Scale of a graph: user units on a picture of any size. The height is negative where y runs up.
struct GraphScale {
    double left = 0;
    double width = 1;
    double top = 0;
    double height = 1;

    /// Place of a point on a picture of this size in logical pixels.
    QPointF at(double x, double y, const QSizeF& size) const;
    /// x under a pixel of a picture of this width.
    double xat(double pixel, double picturewidth) const;
};

/// Scale of a link's profile: sample intervals from the left station, and m. Details and range
/// share its horizontal part.
GraphScale profilescale(const LinkStudy& study);

/// Part of the heights that a profile picture shows, m: what the drawing was widened to.
struct DrawnHeights {
    double low = 0; ///< of the earth's curve at both ends
    double high = 0;
};
DrawnHeights drawnheights(const LinkStudy& study);

/// Height of the curved earth over the chord at sample i, m.
double bulgeat(const LinkStudy& study, double i);
