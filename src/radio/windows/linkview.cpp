#include "radio/windows/linkview.h"

#include "radio/paint/linkpicture.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <utility>

LinkView::LinkView(QWidget* parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("graph"));
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::CrossCursor);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setMinimumSize(320, 160);
}

QSize LinkView::sizeHint() const
{
    return {820, 340};
}

void LinkView::setgraph(Graph painted)
{
    graph = std::move(painted);
    stale = true;
    update();
}

void LinkView::placeline(std::optional<double> share)
{
    line = share;
    update();
}

void LinkView::settext(const QString& shown)
{
    text = shown;
    update();
}

const QPixmap& LinkView::picture()
{
    const QSize pixels = size() * devicePixelRatioF();
    if (!stale && kept.size() == pixels)
        return kept;
    kept = QPixmap(pixels);
    kept.setDevicePixelRatio(devicePixelRatioF());
    kept.fill(linkcanvas);
    if (graph) {
        QPainter painter(&kept);
        graph(QSizeF(size()), painter);
    }
    stale = false;
    return kept;
}

void LinkView::painttext(QPainter& painter)
{
    if (text.isEmpty())
        return;
    constexpr int margin = 3; // pixels
    const QFontMetrics metrics(font());
    painter.fillRect(0, 0, width(), metrics.height() + 2 * margin, QColor(255, 255, 255, 225));
    painter.setPen(Qt::black);
    painter.drawText(margin, margin + metrics.ascent(), text);
}

void LinkView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.drawPixmap(0, 0, picture());
    if (line) {
        const double x = *line * width();
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(Qt::black, 1));
        painter.drawLine(QPointF(x, 0), QPointF(x, height()));
    }
    painttext(painter);
}

void LinkView::report(const QMouseEvent& event)
{
    emit moved(event.position().x() / width(), event.buttons() != Qt::NoButton);
}

void LinkView::mouseMoveEvent(QMouseEvent* event)
{
    report(*event);
}

void LinkView::mousePressEvent(QMouseEvent* event)
{
    report(*event);
}

void LinkView::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Left)
        emit stepped(-1);
    else if (event->key() == Qt::Key_Right)
        emit stepped(1);
    else
        QWidget::keyPressEvent(event);
}
