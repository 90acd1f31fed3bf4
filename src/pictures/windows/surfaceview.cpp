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

void paintmarks(const PictureMarks& marks, QPainter& painter)
{
    if (marks.Line1)
        painthair(marks.vertical, painter);
    if (marks.Line2)
        painthair(marks.horizontal, painter);
    if (marks.Shape2)
        paintdashed(QRectF(marks.selection).adjusted(0.5, 0.5, -0.5, -0.5), painter);
}

} // namespace

SurfaceView::SurfaceView(const OpenPicture& shown, QWidget* parent)
    : QWidget(parent), picture(&shown)
{
    setObjectName(QStringLiteral("Picture1"));
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
