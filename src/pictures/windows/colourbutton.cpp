#include "pictures/windows/colourbutton.h"

#include "pictures/colours.h"
#include "pictures/windows/choosers.h"

#include <QKeyEvent>
#include <QPainter>

QColor qcolour(std::int32_t bgr)
{
    return {redof(bgr), greenof(bgr), blueof(bgr)};
}

std::int32_t bgrof(const QColor& colour)
{
    return colour.red() | colour.green() << 8 | colour.blue() << 16;
}

ColourButton::ColourButton(QWidget* parent) : QAbstractButton(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::PointingHandCursor);
    connect(this, &QAbstractButton::clicked, this, &ColourButton::choose);
}

void ColourButton::setcolour(std::int32_t colour)
{
    value = colour;
    setToolTip(qcolour(value).name().toUpper());
    update();
}

QSize ColourButton::sizeHint() const
{
    const int side = fontMetrics().height();
    return {side * 4, side + 8};
}

void ColourButton::choose()
{
    if (const auto chosen = askcolour(qcolour(value), this)) {
        setcolour(bgrof(*chosen));
        emit changed(value);
    }
}

void ColourButton::keyPressEvent(QKeyEvent* event)
{
    // The dialog's default button must not take the key that a button is pressed with.
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QAbstractButton::keyPressEvent(event);
}

void ColourButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF patch = QRectF(rect()).adjusted(2.5, 2.5, -2.5, -2.5);
    const bool marked = hasFocus() || isDown();
    painter.setPen(palette().color(QPalette::Dark));
    painter.setBrush(qcolour(value));
    painter.drawRoundedRect(patch, 2, 2);
    if (!marked && !underMouse())
        return;
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(palette().color(QPalette::Highlight), marked ? 2 : 1));
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 4, 4);
}
