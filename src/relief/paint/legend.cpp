#include "relief/paint/legend.h"

#include "base/numbers.h"
#include "pictures/paint/fonts.h"
#include "relief/colours.h"

#include <QFontMetrics>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace
{

constexpr int cells = 12;

/// The scale as it stands when the legend is drawn, with its measures in picture pixels.
struct Legend {
    Colours table;
    double brightness; ///< percent
    QString title;
    bool flat; ///< swatches are bands under a rising light; else they pass into each other
    std::array<QString, cells> labels;
    int cellwidth, rowheight;
    int left, top;
};

QString labeltext(const Colours& table, const SignalScale* signal, std::size_t i)
{
    if (i == 0)
        return QStringLiteral("<");
    if (signal != nullptr)
        return QString::fromStdString(generalnumber(signal->levels[i - 1]));
    return QString::number(table.levels[i - 1]);
}

Legend makelegend(const OpenPicture& picture, const SignalScale* signal)
{
    Legend legend{colours,
                  static_cast<double>(picture.data.bri),
                  QStringLiteral("Altitude (m)"),
                  colours.stratified != 0 || signal != nullptr,
                  {},
                  0,
                  0,
                  0,
                  0};
    if (signal != nullptr)
        legend.title = QString::fromStdString("Signal " + signal->unit);
    const QFontMetrics metrics(legendfont());
    int widest = 0;
    for (std::size_t i = 0; i < cells; ++i) {
        legend.labels[i] = labeltext(legend.table, signal, i);
        widest = std::max(widest, metrics.horizontalAdvance(legend.labels[i]));
    }
    legend.rowheight = metrics.height();
    legend.cellwidth = widest + 6;
    legend.left = picture.surface.width() - legend.cellwidth * cells - 7;
    legend.top = picture.surface.height() - legend.rowheight * 3 - 3;
    return legend;
}

QColor scaled(const QColor& colour, double factor)
{
    const auto component = [factor](int value) {
        return std::clamp(static_cast<int>(std::lround(value * factor)), 0, 255);
    };
    return {component(colour.red()), component(colour.green()), component(colour.blue())};
}

QColor between(const QColor& own, const QColor& next, double t)
{
    const auto component = [t](int a, int b) {
        return static_cast<int>(std::lround(a * (1 - t) + b * t));
    };
    return {component(own.red(), next.red()), component(own.green(), next.green()),
            component(own.blue(), next.blue())};
}

QColor colourof(const Colours& table, std::size_t i)
{
    const std::int32_t colour = table.colortable[i];
    return {redof(colour), greenof(colour), blueof(colour)};
}

/// The colour at one column of a swatch: on the way to the next colour, or, in flat bands, under a
/// rising light.
QColor swatchcolour(const Legend& legend, std::size_t i, int x)
{
    const double t = static_cast<double>(x - 3) / std::max(1, legend.cellwidth - 3);
    if (legend.flat)
        return scaled(colourof(legend.table, i), std::sqrt(std::clamp(t, 0.4, 1.0)));
    const double factor = std::clamp(1.2 * legend.brightness / 100, 0.4, 1.0);
    const std::size_t next = i == 0 ? 0 : std::min<std::size_t>(i + 1, cells - 1);
    return between(scaled(colourof(legend.table, i), factor),
                   scaled(colourof(legend.table, next), factor), std::clamp(t, 0.0, 1.0));
}

void paintcell(const Legend& legend, QPainter& painter, std::size_t i)
{
    const QFontMetrics metrics(painter.font());
    const int left = legend.left + static_cast<int>(i) * legend.cellwidth;
    const int inset = (legend.cellwidth - 3 - metrics.horizontalAdvance(legend.labels[i])) / 2;
    painter.setPen(Qt::black);
    painter.drawText(left + inset + 3, legend.top + legend.rowheight + metrics.ascent(),
                     legend.labels[i]);
    const int y1 = legend.top + legend.rowheight * 2;
    const int y2 = legend.top + legend.rowheight * 3 - 2;
    for (int x = 3; x <= legend.cellwidth; ++x)
        painter.fillRect(left + x, y1, 1, y2 - y1 + 1, swatchcolour(legend, i, x));
    painter.drawRect(left + 3, y1, legend.cellwidth - 3, y2 - y1);
}

void paintlegend(const Legend& legend, QPainter& painter)
{
    const int width = legend.cellwidth * cells;
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setFont(legendfont());
    painter.setPen(Qt::black);
    painter.setBrush(QColor(200, 200, 200));
    painter.drawRect(legend.left, legend.top, width + 3, legend.rowheight * 3);
    painter.setBrush(Qt::NoBrush);
    const QFontMetrics metrics(painter.font());
    painter.drawText(legend.left + (width - metrics.horizontalAdvance(legend.title)) / 2,
                     legend.top + metrics.ascent(), legend.title);
    for (std::size_t i = 0; i < cells; ++i)
        paintcell(legend, painter, i);
}

} // namespace

void drawlegend(OpenPicture& picture, const SignalScale* signal)
{
    picture.surface.over.emplace_back([legend = makelegend(picture, signal)](QPainter& painter) {
        paintlegend(legend, painter);
    });
    picturehooks.picturechanged(picture, {});
}
