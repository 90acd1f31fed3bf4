#include "base/numbers.h"
#include "radio/paint/graphstyle.h"
#include "radio/paint/linkpicture.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPolygonF>

#include <algorithm>
#include <vector>

namespace
{
constexpr QColor gridgreen{0, 160, 0};
constexpr QColor blue{0, 0, 255};
/// Length of the flag at the top of a marked loss, dB.
constexpr double flag_db = 5;
/// Tops of the flags of the threshold, of the needed performance and of the mean.
constexpr double thresholdtop = 1.9;
constexpr double needtop = 1.7;
constexpr double meantop = 1.2;
/// Plates of the verdict, on which white letters can be read.
constexpr QColor successplate{0, 92, 0};
constexpr QColor failureplate{160, 0, 0};
/// An axis longer than this, dB, comes from absurd numbers and shows nothing.
constexpr double longestaxis_db = 10000;

/// The pieces of the chart; losses grow to the left, the curve's top is at 1.
class Chart
{
public:
    Chart(const Distribution& distribution_, const QSizeF& size_, QPainter& painter_)
        : spread(distribution_), size(size_),
          painter(painter_), scale{distribution_.hi, distribution_.lo - distribution_.hi, 2, -2.1}
    {
    }
    void paintgrid();
    void paintbars();
    void paintends();
    void paintflag(double loss, double top, const QColor& colour, const QString& text);
    void paintmargin();
    void paintplate(double loss, const QColor& colour, const QString& text);

private:
    QPointF at(double loss, double y) const { return scale.at(loss, y, size); }
    double row() const { return QFontMetricsF(painter.font()).height(); }
    QPolygonF staircase(double first, double last, double end) const;
    QRectF flagbox(double loss, double top, const QString& text) const;
    QRectF band(double left, double right, double y) const;

    const Distribution& spread;
    QSizeF size;
    QPainter& painter;
    GraphScale scale;
};

void Chart::paintgrid()
{
    constexpr double division_db = 10;
    painter.setPen(QPen(gridgreen, 1));
    const auto last = static_cast<int>((spread.hi - 1 - spread.lo) / division_db);
    for (int k = 0; k <= last; ++k) {
        const double x = spread.hi - 1 - k * division_db;
        painter.drawLine(at(x, 0), at(x, 1));
    }
}

/// The bars over losses from first to last, 1 dB each, as one outline, so that no seams show
/// between them. The last one is drawn on to `end`.
QPolygonF Chart::staircase(double first, double last, double end) const
{
    QPolygonF outline;
    const auto steps = static_cast<int>(last - first);
    outline << at(first - 0.5, 0);
    for (int k = 0; k <= steps; ++k) {
        const double x = first + k;
        const double y = spread.density(x);
        outline << at(x - 0.5, y) << at(k == steps ? end : x + 0.5, y);
    }
    outline << at(end, 0);
    return outline;
}

void Chart::paintbars()
{
    const double edge = spread.gain12 + 0.5;
    painter.setPen(Qt::NoPen);
    if (spread.lo <= spread.gain12) {
        painter.setBrush(brightgreen);
        painter.drawPolygon(staircase(spread.lo, spread.gain12, edge));
    }
    if (spread.gain12 + 1 <= spread.hi) {
        painter.setBrush(brightred);
        painter.drawPolygon(staircase(spread.gain12 + 1, spread.hi, spread.hi + 0.5));
    }
    painter.setBrush(Qt::NoBrush);
}

QRectF Chart::band(double left, double right, double y) const
{
    const QPointF corner = at(left, y);
    return {corner, QPointF(at(right, y).x(), at(0, y - 0.2).y())};
}

void Chart::paintends()
{
    painter.setPen(Qt::black);
    const double left = spread.hi - 1;
    const double right = spread.lo + 1;
    painttext(band(left, right, 1.45), Qt::AlignLeft, QStringLiteral("Signal reçu"), painter);
    painttext(band(left, right, 1.45), Qt::AlignRight, QStringLiteral("10 dB/div"), painter);
    painttext(band(left, right, 1.2), Qt::AlignLeft, QStringLiteral("Faible"), painter);
    painttext(band(left, right, 1.2), Qt::AlignRight, QStringLiteral("Fort"), painter);
}

/// Box for a flag's text: left of the flag where no line of a higher flag runs through it, else
/// right of its mast, else left of all lines.
QRectF Chart::flagbox(double loss, double top, const QString& text) const
{
    constexpr double gap = 5; // pixels
    const double width = QFontMetricsF(painter.font()).horizontalAdvance(text);
    const double mast = at(loss, top).x();
    std::vector<double> lines;
    if (top < thresholdtop)
        lines.push_back(at(spread.gain12, 0).x());
    if (top < needtop)
        lines.push_back(at(spread.need, 0).x());
    const auto clear = [&](double start) {
        return start >= 0 && start + width <= size.width() &&
               std::none_of(lines.begin(), lines.end(), [&](double line) {
                   return line > start - gap && line < start + width + gap;
               });
    };
    double start = at(loss + flag_db, top).x() - gap - width;
    if (!clear(start) && clear(mast + 2 * gap))
        start = mast + 2 * gap;
    else if (!clear(start) && !lines.empty())
        start = *std::min_element(lines.begin(), lines.end()) - gap - width;
    return {std::max(start, 1.0), at(loss, top).y() - row() / 2, width, row()};
}

void Chart::paintflag(double loss, double top, const QColor& colour, const QString& text)
{
    painter.setPen(QPen(colour, 1));
    painter.drawPolyline(QPolygonF{at(loss, -0.1), at(loss, top), at(loss + flag_db, top)});
    painttext(flagbox(loss, top, text), Qt::AlignLeft, text, painter);
}

/// A white text on a plate, right of a loss.
void Chart::paintplate(double loss, const QColor& colour, const QString& text)
{
    constexpr double gap = 6; // pixels
    const double width = QFontMetricsF(painter.font()).horizontalAdvance(text + QLatin1Char(' '));
    const QRectF plate(at(loss, 1.45).x() + gap, at(loss, 1.45).y() - 0.6 * row(), width,
                       1.2 * row());
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawRoundedRect(plate, 3, 3);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(Qt::white);
    painttext(plate, Qt::AlignLeft, text, painter);
}

void Chart::paintmargin()
{
    const bool enough = spread.margin() >= 0;
    const double left = std::max(spread.gain12, spread.need);
    const double right = std::min(spread.gain12, spread.need);
    const QColor colour = enough ? brightgreen : brightred;
    painter.setPen(QPen(colour, 3, Qt::SolidLine, Qt::FlatCap));
    painter.drawLine(at(left, 1.45), at(right, 1.45));
    const std::string text =
        (enough ? " Succès" : " Échec") + formatnumber(" (Marge = 0.00 dB)", spread.margin());
    paintplate(right, enough ? successplate : failureplate, QString::fromStdString(text));
}
} // namespace

void paintdistribution(const Distribution& distribution, const QSizeF& size, QPainter& painter)
{
    const GraphPainting graph(size, painter);
    const double axis_db = distribution.hi - distribution.lo;
    if (!(axis_db > 0 && axis_db < longestaxis_db))
        return;
    Chart chart(distribution, size, painter);
    chart.paintgrid();
    chart.paintbars();
    chart.paintends();
    chart.paintflag(distribution.gain12, thresholdtop, Qt::white,
                    QStringLiteral("Seuil de réception"));
    chart.paintflag(distribution.need, needtop, Qt::white,
                    QStringLiteral("Performance à rencontrer"));
    chart.paintflag(distribution.mean, meantop, blue, QStringLiteral("Signal moyen"));
    chart.paintmargin();
}
