#include "relief/windows/scalestrip.h"

#include "base/paint/colour.h"
#include "base/windows/colourbutton.h"

#include <QPainter>

#include <algorithm>

ScaleStrip::ScaleStrip(QWidget* parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("strip"));
    setFixedWidth(fontMetrics().height() * 2);
}

void ScaleStrip::show(const std::array<std::int32_t, 12>& colortable, bool bands)
{
    table = colortable;
    flat = bands;
    update();
}

void ScaleStrip::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const double band = static_cast<double>(height()) / static_cast<double>(table.size());
    for (std::size_t i = 0; i < table.size(); ++i) {
        const double top = height() - band * static_cast<double>(i + 1);
        const QColor own = colorof(table[i]);
        // Below the first level there is but one colour.
        const QColor next = i == 0 ? own : colorof(table[std::min(i + 1, table.size() - 1)]);
        QLinearGradient run(0, top + band, 0, top);
        run.setColorAt(0, own);
        run.setColorAt(1, flat ? own : next);
        painter.fillRect(QRectF(0, top, width(), band + 0.5), run);
    }
    painter.setPen(palette().color(QPalette::Dark));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}
