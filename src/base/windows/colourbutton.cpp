#include "base/windows/colourbutton.h"

#include "base/paint/colour.h"
#include "base/windows/choosers.h"

#include <QKeyEvent>
#include <QPainter>

ColourButton::ColourButton(QWidget* parent) : ColourButton(QString(), QString(), parent) {}

ColourButton::ColourButton(const QString& name, const QString& caption, QWidget* parent)
    : QPushButton(caption, parent), press([this] { choose(); })
{
    setObjectName(name);
    setAutoDefault(false);
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::PointingHandCursor);
    connect(this, &QAbstractButton::clicked, this, [this] { press(); });
}

void ColourButton::setcolour(std::int32_t colour)
{
    value = colour;
    setToolTip(colorof(value).name().toUpper());
    update();
}

QSize ColourButton::sizeHint() const
{
    constexpr int swatchroom = 28; // pixels beside a caption
    const int side = fontMetrics().height();
    if (text().isEmpty())
        return {side * 4, side + 8};
    return QPushButton::sizeHint() + QSize(swatchroom, 0);
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
        QPushButton::keyPressEvent(event);
}

void ColourButton::paintEvent(QPaintEvent* event)
{
    if (text().isEmpty()) {
        paintpatch();
        return;
    }
    QPushButton::paintEvent(event);
    paintswatch();
}

/// The whole button in its colour.
void ColourButton::paintpatch()
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

/// A square of the colour in front of the caption.
void ColourButton::paintswatch()
{
    QPainter painter(this);
    const int side = height() - 14;
    QColor fill = colorof(value);
    if (!isEnabled())
        fill.setAlpha(70);
    painter.setPen(palette().color(QPalette::ButtonText));
    painter.setBrush(fill);
    painter.drawRect(8, 7, side, side);
}
