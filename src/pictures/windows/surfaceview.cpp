#include "pictures/windows/surfaceview.h"

#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>

namespace
{

/// Black dashes on a white line show on every picture, whatever its colours.
void paintdashed(const QPolygonF& line, QPainter& painter)
{
    QPen pen(Qt::white, 1, Qt::SolidLine, Qt::FlatCap);
    painter.setPen(pen);
    painter.drawPolyline(line);
    pen.setColor(Qt::black);
    pen.setDashPattern({4, 4});
    painter.setPen(pen);
    painter.drawPolyline(line);
}

void painthair(const QLine& hair, QPainter& painter)
{
    const QLineF middle = QLineF(hair).translated(0.5, 0.5);
    paintdashed(QPolygonF({middle.p1(), middle.p2()}), painter);
}

/// One of each pair for either eye, through red and blue glasses, in a frame that shows on all
/// colours.
void paintstereo(const std::array<QRect, 4>& boxes, QPainter& painter)
{
    const std::array<QColor, 4> colours{Qt::red, Qt::cyan, Qt::black, Qt::black};
    for (std::size_t i = 0; i < boxes.size(); ++i) {
        if (boxes[i].isEmpty())
            continue;
        painter.setPen(QPen(colours[i], 1));
        painter.drawRect(QRectF(boxes[i]).adjusted(0.5, 0.5, -0.5, -0.5));
    }
}

void paintmarks(const PictureMarks& marks, QPainter& painter)
{
    if (marks.Line1)
        painthair(marks.vertical, painter);
    if (marks.Line2)
        painthair(marks.horizontal, painter);
    if (marks.Shape2)
        paintdashed(QRectF(marks.selection).adjusted(0.5, 0.5, -0.5, -0.5), painter);
    paintstereo(marks.Shape1, painter);
}

} // namespace

SurfaceView::SurfaceView(const OpenPicture& shown, QWidget* parent)
    : QWidget(parent), picture(&shown)
{
    setObjectName(QStringLiteral("surface"));
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::CrossCursor);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void SurfaceView::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    if (picture == nullptr) {
        painter.fillRect(event->rect(), Qt::white);
        return;
    }
    paintsurface(picture->surface, painter);
    paintmarks(picture->marks, painter);
}

void SurfaceView::mousePressEvent(QMouseEvent* event)
{
    emit pressed(event);
}

void SurfaceView::mouseMoveEvent(QMouseEvent* event)
{
    emit moved(event);
}

void SurfaceView::mouseReleaseEvent(QMouseEvent* event)
{
    emit released(event);
}

void SurfaceView::mouseDoubleClickEvent(QMouseEvent* event)
{
    emit doubleclicked(event);
}

void SurfaceView::focusInEvent(QFocusEvent* event)
{
    QWidget::focusInEvent(event);
    emit focused(true);
}

void SurfaceView::focusOutEvent(QFocusEvent* event)
{
    QWidget::focusOutEvent(event);
    emit focused(false);
}
