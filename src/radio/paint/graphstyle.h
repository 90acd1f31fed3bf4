#pragma once

#include <QColor>
#include <QFont>
#include <QSizeF>

class QPainter;
class QPointF;
class QPolygonF;
class QRectF;
class QString;

/// Standard colours of the graphs' lines.
inline constexpr QColor magenta{128, 0, 128};
inline constexpr QColor brightgreen{0, 255, 0};
inline constexpr QColor brightred{255, 0, 0};
inline constexpr QColor yellow{255, 255, 0};
/// Texts and ticks of the axes, on the ground of the graphs.
inline constexpr QColor axisink{28, 33, 41};
/// Lines across a graph at the ticks.
inline constexpr QColor gridink{255, 255, 255, 44};

/// Far outside any picture, in pixels: places beyond are painted here, so that absurd numbers cost
/// the rasteriser nothing.
inline constexpr double faroutside = 2e4;

/// Height in pixels of the band at a picture's top that stays free for a line of text.
inline constexpr double textband = 26;

/// Font of a graph's texts, growing moderately with the picture.
QFont graphfont(const QSizeF& size);

/// The state that all graphs are painted in: smooth lines, the graph's font, nothing outside the
/// picture. Paints the ground; gives the painter back as it was.
class GraphPainting
{
public:
    GraphPainting(const QSizeF& size, QPainter& target);
    ~GraphPainting();
    GraphPainting(const GraphPainting&) = delete;
    GraphPainting& operator=(const GraphPainting&) = delete;

private:
    QPainter& painter;
};

/// Distance of an axis's ticks: 1, 2 or 5 times a power of ten, so that a range has at most so many
/// of them. 0 when the range has no ticks.
double tickstep(double range, double mostticks);

/// A tick's value in as many decimals as its distance needs.
QString ticktext(double value, double step);

/// The point itself, or the nearest one that isn't far outside the picture.
QPointF heldpoint(const QPointF& point);

/// Text within a box: vertically centred, and aligned left, right or centred by Qt's flags.
void painttext(const QRectF& box, int alignment, const QString& text, QPainter& painter);

// The rasteriser's time grows with the square of the pixels that a figure's edge has in a row, and
// it hands a figure of many spans to other threads, which costs more than it saves. So lines are
// painted in short pieces.

/// A jagged line in the painter's pen, segment by segment.
void paintline(const QPolygonF& line, QPainter& painter);

/// A smooth curve that runs from left to right, in pieces cut at whole pixels, where no seams show.
void paintcurve(const QPolygonF& curve, double width, const QColor& colour, QPainter& painter);

/// Fills what lies below such a curve, cut likewise.
void fillbelow(const QPolygonF& curve, double bottom, const QColor& colour, QPainter& painter);
