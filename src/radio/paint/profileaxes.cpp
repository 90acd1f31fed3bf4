#include "radio/paint/profileaxes.h"

#include "base/numbers.h"
#include "radio/earth.h"
#include "radio/paint/graphstyle.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <vector>

namespace
{
/// Least distance of ticks, in heights and widths of the font.
constexpr double tickrows = 2.4;
constexpr double tickcolumns = 9;
constexpr double ticklength = 4; // pixels
/// How much narrower than usual a figure may become.
constexpr double narrowest = 0.6;
/// Texts over the earth's dark body.
constexpr QColor lightink{232, 235, 240};

/// Elevations that have a tick: those of a row of round numbers that leave room for the unit and
/// the names above.
struct ElevationTicks {
    double step = 0;
    std::vector<double> values;
};

ElevationTicks elevationticks(const LinkStudy& study, const QSizeF& size, double row_px)
{
    const GraphScale scale = profilescale(study);
    const double most = size.height() / (row_px * tickrows);
    ElevationTicks ticks{tickstep(std::abs(scale.height), most), {}};
    if (!(ticks.step > 0))
        return ticks;
    const double first = std::ceil(drawnheights(study).low / ticks.step);
    const auto count = static_cast<int>(most) + 1;
    for (int k = 0; k < count; ++k) {
        const double value = (first + k) * ticks.step;
        if (scale.at(0, value, size).y() < textband + 1.6 * row_px)
            break;
        ticks.values.push_back(value);
    }
    return ticks;
}

void paintheights(const LinkStudy& study, const QSizeF& size, QPainter& painter)
{
    const GraphScale scale = profilescale(study);
    const double row_px = QFontMetricsF(painter.font()).height();
    const ElevationTicks ticks = elevationticks(study, size, row_px);
    const double axis = scale.at(0, 0, size).x();
    painter.setPen(QPen(axisink, 1));
    double highest = size.height();
    for (const double value : ticks.values) {
        highest = scale.at(0, value, size).y();
        paintfigure(axis, highest, ticktext(value, ticks.step), painter);
    }
    if (!ticks.values.empty())
        paintunit(axis, highest - row_px, QStringLiteral("m"), painter);
}

/// Length of the ticks left of an axis: shorter where they would take the figures' room.
double lefttick(double axis)
{
    return std::min(ticklength, axis / 9);
}

/// The stations and their antennas under the band of text, each within its half.
void paintnames(const LinkStudy& study, const QSizeF& size, QPainter& painter)
{
    const GraphScale scale = profilescale(study);
    const QFontMetricsF metrics(painter.font());
    const double left = scale.at(0, 0, size).x();
    const double right = scale.at(study.link.profile.intervals(), 0, size).x();
    const QRectF box(left, textband, right - left, metrics.height());
    const auto paintname = [&](int alignment, const std::string& name, double height_m) {
        const QString text = QString::fromStdString(name + " · " + formatnumber("0.0 m", height_m));
        painttext(box, alignment, metrics.elidedText(text, Qt::ElideMiddle, box.width() * 0.48),
                  painter);
    };
    painter.setPen(axisink);
    paintname(Qt::AlignLeft, study.namea, study.link.record.h1);
    paintname(Qt::AlignRight, study.nameb, study.link.record.h2);
}
} // namespace

void paintunit(double axis, double y, const QString& text, QPainter& painter)
{
    const QFontMetricsF metrics(painter.font());
    const double width = metrics.horizontalAdvance(text);
    const double right = axis - 1.5 * lefttick(axis);
    const double room = right - 1;
    painter.save();
    painter.translate(right, y);
    if (width > room)
        painter.scale(std::max(room / width, narrowest), 1);
    painttext(QRectF(-width, -metrics.height() / 2, width, metrics.height()), Qt::AlignRight, text,
              painter);
    painter.restore();
}

void paintfigure(double axis, double y, const QString& text, QPainter& painter)
{
    painter.drawLine(QPointF(axis - lefttick(axis), y), QPointF(axis, y));
    paintunit(axis, y, text, painter);
}

void paintelevations(const LinkStudy& study, const QSizeF& size, QPainter& painter)
{
    constexpr int segments = 128;
    const GraphScale scale = profilescale(study);
    const double row_px = QFontMetricsF(painter.font()).height();
    const int n = study.link.profile.intervals();
    painter.save();
    painter.setClipRect(QRectF(0, textband, size.width(), size.height()), Qt::IntersectClip);
    painter.setPen(QPen(gridink, 1, Qt::SolidLine, Qt::FlatCap));
    for (const double value : elevationticks(study, size, row_px).values) {
        QPolygonF line;
        for (int k = 0; k <= segments; ++k) {
            const double i = static_cast<double>(k) * n / segments;
            line << heldpoint(scale.at(i, value + bulgeat(study, i), size));
        }
        paintline(line, painter);
    }
    painter.restore();
}

void paintdistances(const LinkStudy& study, const QSizeF& size, const QColor& ink,
                    QPainter& painter)
{
    const Profile& profile = study.link.profile;
    const GraphScale scale = profilescale(study);
    const QFontMetricsF metrics(painter.font());
    const double row_px = metrics.height();
    const double length_px = size.width() * profile.intervals() / scale.width;
    const double step =
        tickstep(profile.distkm, length_px / (metrics.averageCharWidth() * tickcolumns));
    if (!(step > 0))
        return;
    const double below = size.height() - row_px - 1;
    painter.setPen(QPen(ink, 1));
    const auto last = static_cast<int>(std::floor(profile.distkm / step * (1 + 1e-9)));
    for (int k = 0; k <= last; ++k) {
        const double x = scale.at(k * step / profile.distkm * profile.intervals(), 0, size).x();
        painter.drawLine(QPointF(x, below - ticklength), QPointF(x, below));
        QString text = ticktext(k * step, step);
        if (k == last)
            text += QStringLiteral(" km");
        const double width = metrics.horizontalAdvance(text);
        const double start = std::min(x - width / 2, size.width() - width - 1);
        painttext(QRectF(start, below, width, row_px), Qt::AlignLeft, text, painter);
    }
}

void paintaxes(const LinkStudy& study, const QSizeF& size, QPainter& painter)
{
    paintheights(study, size, painter);
    paintdistances(study, size, lightink, painter);
    paintnames(study, size, painter);
}
