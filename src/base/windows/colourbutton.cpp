#include "base/windows/colourbutton.h"

#include "base/paint/colour.h"
#include "base/windows/choosers.h"

#include <QKeyEvent>
#include <QPainter>

ColourButton::ColourButton(QWidget* parent) : QAbstractButton(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::PointingHandCursor);
    connect(this, &QAbstractButton::clicked, this, &ColourButton::choose);
}

void ColourButton::setcolour(std::int32_t colour)
{
    value = colour;
    setToolTip(colorof(value).name().toUpper());
    update();
}

QSize ColourButton::sizeHint() const
{
    const int side = fontMetrics().height();
    return {side * 4, side + 8};
}

void ColourButton::choose()
{
    if (const auto chosen = askcolour(colorof(value), this)) {
        setcolour(colourvalue(*chosen));
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
    painter.setBrush(colorof(value));
    painter.drawRoundedRect(patch, 2, 2);
    if (!marked && !underMouse())
        return;
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(palette().color(QPalette::Highlight), marked ? 2 : 1));
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 4, 4);
}
