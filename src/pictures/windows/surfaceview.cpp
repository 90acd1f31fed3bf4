#include "pictures/windows/surfaceview.h"

#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>

namespace
{

/// Hairs and selection invert what lies under them, so that they show on every picture.
void paintmarks(const PictureMarks& marks, QPainter& painter)
{
    painter.setCompositionMode(QPainter::CompositionMode_Difference);
    if (marks.Line1)
        painter.fillRect(QRect(marks.vertical.p1(), QSize(1, marks.vertical.dy())), Qt::white);
    if (marks.Line2)
        painter.fillRect(QRect(marks.horizontal.p1(), QSize(marks.horizontal.dx(), 1)), Qt::white);
    if (marks.Shape2) {
        QPen pen(Qt::white, 1, Qt::CustomDashLine, Qt::FlatCap);
        pen.setDashPattern({4, 4});
        painter.setPen(pen);
        painter.drawRect(QRectF(marks.selection).adjusted(0.5, 0.5, -0.5, -0.5));
    }
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
