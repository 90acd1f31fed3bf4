#include "base/numbers.h"
#include "radio/paint/graphstyle.h"
#include "radio/paint/linkpicture.h"

#include <QPainter>

void paintsmeter(float level, const QSizeF& size, QPainter& painter)
{
    constexpr QColor darkgreen{0, 128, 0};
    constexpr QColor darkred{128, 0, 0};
    constexpr QColor panel{24, 27, 32};
    constexpr int boxes = 12;
    constexpr int lastsunit = 9;
    const double v = roundtoeven(double{level});
    const GraphScale scale{0, 195, 0, 11};
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(QRectF(QPointF(), size), panel);
    for (int i = 1; i <= boxes; ++i) {
        const bool sunit = i <= lastsunit;
        const bool lit = (sunit ? i : (i - lastsunit) * 10) <= v;
        const QColor colour = sunit ? (lit ? brightgreen : darkgreen) : (lit ? brightred : darkred);
        painter.fillRect(QRectF(scale.at(i * 16 - 14, 2, size), scale.at(i * 16 - 2, 8, size)),
                         colour);
    }
    painter.restore();
}
