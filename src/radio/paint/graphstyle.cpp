#include "radio/paint/graphstyle.h"

#include "base/numbers.h"
#include "radio/paint/linkpicture.h"

#include <QLineF>
#include <QList>
#include <QPainter>
#include <QPolygonF>
#include <QString>

#include <algorithm>
#include <cmath>

namespace
{
/// Width of the pieces that curves are cut into, pixels.
constexpr double piecewidth = 16;

/// Cuts a curve that runs from left to right at every so many pixels.
QList<QPolygonF> piecesof(const QPolygonF& curve)
{
    QList<QPolygonF> pieces;
    QPolygonF piece{curve.front()};
    int cut = static_cast<int>(std::floor(curve.front().x() / piecewidth)) + 1;
    for (qsizetype i = 1; i < curve.size(); ++i) {
        const QLineF segment(curve[i - 1], curve[i]);
        for (; cut * piecewidth < segment.x2(); ++cut) {
            piece << segment.pointAt((cut * piecewidth - segment.x1()) / segment.dx());
            pieces << piece;
            piece = {piece.back()};
        }
        piece << segment.p2();
    }
    return pieces << piece;
}

/// From a point of a piece to the edge of a line of this half width: square to the line, but
/// upright at both ends, so that the next piece fits.
QPointF edgeoffset(const QPolygonF& piece, qsizetype i, double half)
{
    constexpr double steepest = 4;
    const qsizetype last = piece.size() - 1;
    const QPointF along = piece[std::min(i + 1, last)] - piece[std::max(i - 1, qsizetype{0})];
    const double length = std::hypot(along.x(), along.y());
    if (!(length > 0))
        return {0, half};
    if (i == 0 || i == last)
        return {0, half * std::min(length / std::max(along.x(), 1e-9), steepest)};
    return {-along.y() / length * half, along.x() / length * half};
}
} // namespace

QFont graphfont(const QSizeF& size)
{
    constexpr double least = 9; // pixels
    constexpr double most = 19;
    constexpr double base = 6;
    constexpr double growth = 1.0 / 62;
    const double side = std::min(size.height(), size.width() / 2);
    QFont font(QStringLiteral("Sans Serif"));
    font.setStyleHint(QFont::SansSerif);
    font.setPixelSize(static_cast<int>(std::clamp(base + side * growth, least, most)));
    return font;
}

GraphPainting::GraphPainting(const QSizeF& size, QPainter& target) : painter(target)
{
    const QRectF whole(QPointF(), size);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setClipRect(whole, Qt::IntersectClip);
    painter.fillRect(whole, linkcanvas);
    painter.setFont(graphfont(size));
    painter.setBrush(Qt::NoBrush);
}

GraphPainting::~GraphPainting()
{
    painter.restore();
}

double tickstep(double range, double mostticks)
{
    if (!(range > 0) || !std::isfinite(range) || !(mostticks >= 1))
        return 0;
    const double least = range / mostticks;
    const double power = std::pow(10, std::floor(std::log10(least)));
    for (const double factor : {1.0, 2.0, 5.0})
        if (factor * power >= least)
            return factor * power;
    return 10 * power;
}

QString ticktext(double value, double step)
{
    const int decimals = std::clamp(static_cast<int>(std::ceil(-std::log10(step))), 0, 3);
    std::string pattern = "0";
    if (decimals > 0)
        pattern += "." + std::string(static_cast<std::size_t>(decimals), '0');
    return QString::fromStdString(formatnumber(pattern, value + 0.0));
}

QPointF heldpoint(const QPointF& point)
{
    // What is no number fails the comparison, too.
    const auto held = [](double value) {
        return value > -faroutside ? std::min(value, faroutside) : -faroutside;
    };
    return {held(point.x()), held(point.y())};
}

void painttext(const QRectF& box, int alignment, const QString& text, QPainter& painter)
{
    painter.drawText(box, alignment | Qt::AlignVCenter | Qt::TextSingleLine | Qt::TextDontClip,
                     text);
}

void paintline(const QPolygonF& line, QPainter& painter)
{
    QList<QLineF> segments;
    for (qsizetype i = 1; i < line.size(); ++i)
        segments << QLineF(line[i - 1], line[i]);
    painter.drawLines(segments);
}

void paintcurve(const QPolygonF& curve, double width, const QColor& colour, QPainter& painter)
{
    painter.save();
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    for (const QPolygonF& piece : piecesof(curve)) {
        QPolygonF outline;
        for (qsizetype i = 0; i < piece.size(); ++i)
            outline << piece[i] + edgeoffset(piece, i, width / 2);
        for (qsizetype i = piece.size(); i-- > 0;)
            outline << piece[i] - edgeoffset(piece, i, width / 2);
        painter.drawPolygon(outline);
    }
    painter.restore();
}

void fillbelow(const QPolygonF& curve, double bottom, const QColor& colour, QPainter& painter)
{
    painter.save();
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    for (QPolygonF strip : piecesof(curve)) {
        strip << QPointF(strip.back().x(), bottom) << QPointF(strip.front().x(), bottom);
        painter.drawPolygon(strip);
    }
    painter.restore();
}
