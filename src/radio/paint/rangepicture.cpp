#include "base/numbers.h"
#include "radio/linkrange.h"
#include "radio/paint/graphstyle.h"
#include "radio/paint/linkpicture.h"
#include "radio/paint/profileaxes.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace
{
/// Scale of the range graph: loss downward from 0.
GraphScale rangescale(const LinkStudy& study)
{
    GraphScale scale = profilescale(study);
    scale.top = 0;
    scale.height = study.link.gain12 * 1.5;
    return scale;
}

QColor losscolour(double level_db)
{
    if (level_db > 3)
        return brightgreen;
    return level_db > -3 ? yellow : brightred;
}

/// Lines, ticks and figures in dB, between the band of text and the axis of distances.
void paintlosses(const LinkStudy& study, const GraphScale& scale, const QSizeF& size,
                 QPainter& painter)
{
    const double row_px = QFontMetricsF(painter.font()).height();
    const double step = tickstep(scale.height, size.height() / (row_px * 2.4));
    const double left = scale.at(0, 0, size).x();
    const double right = scale.at(study.link.profile.intervals(), 0, size).x();
    if (!(step > 0))
        return;
    double highest = size.height();
    for (int k = 1; k * step < scale.height; ++k) {
        const double loss = k * step;
        const double y = scale.at(0, loss, size).y();
        if (y < textband + 1.6 * row_px || y > size.height() - 2 * row_px)
            continue;
        painter.setPen(QPen(gridink, 1));
        painter.drawLine(QPointF(left, y), QPointF(right, y));
        painter.setPen(QPen(axisink, 1));
        paintfigure(left, y, ticktext(loss, step), painter);
        highest = std::min(highest, y);
    }
    paintunit(left, highest - row_px, QStringLiteral("dB"), painter);
}

/// The curve of the losses from no loss at the left station on.
QPolygonF losscurve(const Link& link, const GraphScale& scale, const QSizeF& size)
{
    QPolygonF curve{scale.at(0, 0, size)};
    for (int i = 1; i <= link.profile.intervals(); ++i)
        curve << heldpoint(scale.at(i, link.lossat(i), size));
    return curve;
}

/// The system gain: a line across, and its text at the line's end where the curve leaves it free:
/// below the line and whatever of the curve hangs below it there, else above both.
void paintgain(const Link& link, const QPolygonF& curve, double y, const QSizeF& size,
               QPainter& painter)
{
    const QString text =
        QString::fromStdString("Gain de système=" + formatnumber("0.0 dB", link.gain12));
    const QFontMetricsF metrics(painter.font());
    const double width = metrics.horizontalAdvance(text);
    const double start = curve.back().x() - width;
    double lowest = y;
    double highest = y;
    for (const QPointF& point : curve)
        if (point.x() >= start) {
            lowest = std::max(lowest, point.y());
            highest = std::min(highest, point.y());
        }
    const double row = metrics.height();
    const bool below = lowest + 4 * row < size.height();
    painter.setPen(QPen(yellow, 1));
    painter.drawLine(QPointF(0, y), QPointF(size.width(), y));
    painttext(QRectF(start, below ? lowest + 2 : highest - row - 2, width, row), Qt::AlignLeft,
              text, painter);
}
} // namespace

void paintrange(const LinkStudy& study, const QSizeF& size, QPainter& painter)
{
    const GraphPainting graph(size, painter);
    const Link& link = study.link;
    if (!study.done || !rangesample(link) || link.gain12 == 0 || !std::isfinite(link.gain12))
        return;
    const GraphScale scale = rangescale(study);
    const QPolygonF curve = losscurve(link, scale, size);
    paintlosses(study, scale, size, painter);
    paintdistances(study, size, axisink, painter);
    paintgain(link, curve, scale.at(0, link.gain12, size).y(), size, painter);
    for (int i = 1; i <= link.profile.intervals(); ++i) {
        painter.setPen(QPen(losscolour(link.gain12 - link.lossat(i)), 2));
        painter.drawLine(curve[i - 1], curve[i]);
    }
}
