#include "base/windows/swatchbutton.h"

#include <QColorDialog>
#include <QPainter>

SwatchButton::SwatchButton(const QString& name, QWidget* parent)
    : QPushButton(QStringLiteral("Couleur"), parent)
{
    setObjectName(name);
    setAutoDefault(false);
    setMinimumWidth(sizeHint().width() + 28);
}

void SwatchButton::setcolour(std::int32_t colour)
{
    shown = colour;
    update();
}

void SwatchButton::choose()
{
    const QColor chosen =
        QColorDialog::getColor(QColor(shown & 255, shown >> 8 & 255, shown >> 16 & 255), this);
    if (chosen.isValid())
        setcolour(chosen.red() | chosen.green() << 8 | chosen.blue() << 16);
}

void SwatchButton::paintEvent(QPaintEvent* event)
{
    QPushButton::paintEvent(event);
    QPainter painter(this);
    const int side = height() - 14;
    QColor fill(shown & 255, shown >> 8 & 255, shown >> 16 & 255);
    if (!isEnabled())
        fill.setAlpha(70);
    painter.setPen(
        palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::ButtonText));
    painter.setBrush(fill);
    painter.drawRect(8, 7, side, side);
}
