#include "app/base/numbers.h"
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

void paintlosses(const LinkStudy& study, const GraphScale& scale, const QSizeF& size,
                 QPainter& painter)
{
    const QFontMetricsF metrics(painter.font());
    const double step = tickstep(scale.height, size.height() / (metrics.height() * 2.4));
    const double left = scale.at(0, 0, size).x();
    const double right = scale.at(study.link.profile.intervals(), 0, size).x();
    if (!(step > 0))
        return;
    for (double loss = step; loss < scale.height; loss += step) {
        const double y = scale.at(0, loss, size).y();
        if (y < textband || y > size.height() - 2 * metrics.height())
            continue;
        painter.setPen(QPen(gridink, 1));
        painter.drawLine(QPointF(left, y), QPointF(right, y));
        painter.setPen(axisink);
        painttext(QRectF(0, y - metrics.height() / 2, left - 3, metrics.height()), Qt::AlignRight,
                  ticktext(loss, step), painter);
    }
}

/// The system gain: a line across, and its text at the line's end, on the side that the curve
/// leaves free there.
void paintgain(const LinkStudy& study, const GraphScale& scale, const QSizeF& size,
               QPainter& painter)
{
    const Link& link = study.link;
    const QFontMetricsF metrics(painter.font());
    const double y = scale.at(0, link.gain12, size).y();
    painter.setPen(QPen(yellow, 1));
    painter.drawLine(QPointF(0, y), QPointF(size.width(), y));
    const bool above = link.lossat(link.profile.intervals()) > link.gain12;
    const QRectF box(0, above ? y - metrics.height() - 2 : y + 2,
                     scale.at(link.profile.intervals(), 0, size).x(), metrics.height());
    painttext(box, Qt::AlignRight,
              QString::fromStdString("Gain de système=" + formatnumber("0.0 dB", link.gain12)),
              painter);
}
} // namespace

void paintrange(const LinkStudy& study, const QSizeF& size, QPainter& painter)
{
    const GraphPainting graph(size, painter);
    const Link& link = study.link;
    if (!study.done || !rangesample(link) || link.gain12 == 0)
        return;
    const GraphScale scale = rangescale(study);
    paintlosses(study, scale, size, painter);
    paintdistances(study, size, axisink, painter);
    paintgain(study, scale, size, painter);
    QPointF last = scale.at(0, 0, size);
    for (int i = 1; i <= link.profile.intervals(); ++i) {
        const QPointF next = scale.at(i, link.lossat(i), size);
        painter.setPen(
            QPen(losscolour(link.gain12 - link.lossat(i)), 2, Qt::SolidLine, Qt::RoundCap));
        painter.drawLine(last, next);
        last = next;
    }
}

void paintdetails(const LinkStudy& study, const QSizeF& size, QPainter& painter)
{
    const GraphPainting graph(size, painter);
    if (!study.done)
        return;
    QString text;
    for (const std::string& line : study.analysis.linktext)
        text += QString::fromStdString(line) + QLatin1Char('\n');
    text.remove(QLatin1Char('\r'));
    const double border = size.width() / 40;
    const QRectF page(border, border, size.width() - 2 * border, size.height() - 2 * border);
    constexpr int flags = Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap;
    QFont font = painter.font();
    // The largest letters with which all of it fits.
    for (int pixels = font.pixelSize() + 3; pixels > 5; --pixels) {
        font.setPixelSize(pixels);
        painter.setFont(font);
        if (painter.boundingRect(page, flags, text).height() <= page.height())
            break;
    }
    painter.setPen(Qt::black);
    painter.drawText(page, flags, text);
}
