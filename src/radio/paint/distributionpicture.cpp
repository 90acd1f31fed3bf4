#include "app/base/numbers.h"
#include "radio/paint/graphstyle.h"
#include "radio/paint/linkpicture.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPolygonF>

#include <algorithm>

namespace
{
constexpr QColor gridgreen{0, 160, 0};
constexpr QColor blue{0, 0, 255};
/// Length of the flag at the top of a marked loss, dB.
constexpr double flag_db = 5;

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

private:
    QPointF at(double loss, double y) const { return scale.at(loss, y, size); }
    double row() const { return QFontMetricsF(painter.font()).height(); }
    QPolygonF staircase(double first, double last, double end) const;
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
    for (double x = spread.hi - 1; x >= spread.lo; x -= division_db)
        painter.drawLine(at(x, 0), at(x, 1));
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

void Chart::paintflag(double loss, double top, const QColor& colour, const QString& text)
{
    painter.setPen(QPen(colour, 1));
    painter.drawPolyline(QPolygonF{at(loss, -0.1), at(loss, top), at(loss + flag_db, top)});
    const QPointF end = at(loss + flag_db, top);
    const QRectF box(0, end.y() - row() / 2, end.x() - 4, row());
    painttext(box, Qt::AlignRight, text, painter);
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
    painttext(band(right, spread.lo, 1.55), Qt::AlignLeft, QString::fromStdString(text), painter);
}
} // namespace

void paintdistribution(const Distribution& distribution, const QSizeF& size, QPainter& painter)
{
    const GraphPainting graph(size, painter);
    if (!(distribution.hi > distribution.lo))
        return;
    Chart chart(distribution, size, painter);
    chart.paintgrid();
    chart.paintbars();
    chart.paintends();
    chart.paintflag(distribution.gain12, 1.9, Qt::white, QStringLiteral("Seuil de réception"));
    chart.paintflag(distribution.need, 1.7, Qt::white, QStringLiteral("Performance à rencontrer"));
    chart.paintflag(distribution.mean, 1.2, blue, QStringLiteral("Signal moyen"));
    chart.paintmargin();
}
