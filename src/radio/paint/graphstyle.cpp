#include "radio/paint/graphstyle.h"

#include "app/base/numbers.h"
#include "radio/paint/linkpicture.h"

#include <QPainter>
#include <QString>

#include <algorithm>
#include <cmath>

QFont graphfont(const QSizeF& size)
{
    constexpr double least = 9; // pixels
    constexpr double most = 19;
    constexpr double base = 6;
    constexpr double growth = 1.0 / 62;
    const double side = std::min(size.height(), size.width() / 2);
    QFont font(QStringLiteral("Sans Serif"));
    font.setStyleHint(QFont::SansSerif);
    font.setPixelSize(static_cast<int>(std::clamp(base + side * growth, least, most)));
    return font;
}

GraphPainting::GraphPainting(const QSizeF& size, QPainter& target) : painter(target)
{
    const QRectF whole(QPointF(), size);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setClipRect(whole, Qt::IntersectClip);
    painter.fillRect(whole, linkcanvas);
    painter.setFont(graphfont(size));
    painter.setBrush(Qt::NoBrush);
}

GraphPainting::~GraphPainting()
{
    painter.restore();
}

double tickstep(double range, double mostticks)
{
    if (!(range > 0) || !std::isfinite(range) || !(mostticks >= 1))
        return 0;
    const double least = range / mostticks;
    const double power = std::pow(10, std::floor(std::log10(least)));
    for (const double factor : {1.0, 2.0, 5.0})
        if (factor * power >= least)
            return factor * power;
    return 10 * power;
}

QString ticktext(double value, double step)
{
    const int decimals = std::clamp(static_cast<int>(std::ceil(-std::log10(step))), 0, 3);
    std::string pattern = "0";
    if (decimals > 0)
        pattern += "." + std::string(static_cast<std::size_t>(decimals), '0');
    return QString::fromStdString(formatnumber(pattern, value + 0.0));
}

void painttext(const QRectF& box, int alignment, const QString& text, QPainter& painter)
{
    painter.drawText(box, alignment | Qt::AlignVCenter | Qt::TextSingleLine | Qt::TextDontClip,
                     text);
}
