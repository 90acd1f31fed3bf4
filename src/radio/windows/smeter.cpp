#include "radio/windows/smeter.h"

#include "radio/paint/linkpicture.h"

#include <QPainter>

SMeter::SMeter(const QString& name, QWidget* parent) : QWidget(parent)
{
    setObjectName(name);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void SMeter::smeter(float level)
{
    shown = level;
    update();
}

QSize SMeter::sizeHint() const
{
    return {195, 11}; // the scale of the meter's drawing
}

void SMeter::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    paintsmeter(shown, QSizeF(size()), painter);
}
