#include "netoverlay/paint/linksheet.h"

#include "base/paint/colour.h"
#include "radio/evaluate.h"

#include <QPaintEngine>
#include <QPainter>

#include <cmath>
#include <utility>

namespace
{

/// How the links of a class are drawn: a bright line over a wider dark one.
struct LinePen {
    QColor bright, dark;
    int width, darkwidth;
    bool dotted;
};

LinePen linepen(int lineclass)
{
    const QColor bright = colorof(linecolour(lineclass));
    const QColor darkgreen(0, 60, 0);
    switch (lineclass) {
    case 1:
        return {bright, QColor(200, 0, 0), 2, 3, false};
    case 2:
        return {bright, QColor(60, 0, 0), 1, 3, true};
    case 3:
        return {bright, QColor(80, 60, 0), 1, 3, true};
    case 4:
        return {bright, darkgreen, 1, 3, true};
    case 5:
        return {bright, darkgreen, 1, 3, false};
    default:
        return {bright, darkgreen, 2, 4, false};
    }
}

void paintlines(const LinkSheet& sheet, QPainter& painter)
{
    for (const LinkLine& line : sheet.lines)
        paintlink(painter, line, sheet.opaque);
}

/// The scale at which an image can stand for the lines; 0 where lines are better: few of them, on
/// paper, turned, or on a sheet that would take too much memory.
double imagescale(const LinkSheet& sheet, const QPainter& painter)
{
    constexpr std::size_t fewest = 64;  // lines that take longer than an image
    constexpr double most = 16'000'000; // pixels
    const QTransform& transform = painter.deviceTransform();
    const double scale = transform.m11();
    const bool upright = transform.type() <= QTransform::TxScale && scale == transform.m22();
    const bool onscreen = painter.paintEngine()->type() == QPaintEngine::Raster;
    if (sheet.lines.size() < fewest || !upright || !onscreen || scale <= 0)
        return 0;
    return sheet.size.width() * scale * (sheet.size.height() * scale) <= most ? scale : 0;
}

QImage makeimage(const LinkSheet& sheet, double scale)
{
    const auto pixels = [scale](int length) { return static_cast<int>(std::ceil(length * scale)); };
    QImage image(pixels(sheet.size.width()), pixels(sheet.size.height()),
                 QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    image.setDevicePixelRatio(scale);
    QPainter painter(&image);
    paintlines(sheet, painter);
    return image;
}

} // namespace

void paintline(QPainter& painter, const QLineF& line, const QColor& colour, int width, bool dotted)
{
    QPen pen(colour, width, Qt::SolidLine, Qt::FlatCap);
    if (dotted)
        pen.setDashPattern({3, 3});
    painter.setPen(pen);
    const double shift = width % 2 != 0 ? 0.5 : 0;
    painter.drawLine(line.translated(shift, shift));
}

void paintlink(QPainter& painter, const LinkLine& link, bool opaque)
{
    const LinePen pen = linepen(link.lineclass);
    const QLineF line(link.from, link.to);
    // The dark edge is smooth; the bright line keeps the pure colour of its class.
    painter.setRenderHint(QPainter::Antialiasing);
    if (opaque)
        paintline(painter, line, pen.dark, pen.darkwidth, false);
    painter.setRenderHint(QPainter::Antialiasing, false);
    paintline(painter, line, pen.bright, pen.width, pen.dotted);
}

void fillsheet(std::shared_ptr<LinkSheet>& sheet, std::vector<LinkLine> lines, bool opaque,
               const QSize& size)
{
    const bool same =
        sheet && sheet->lines == lines && sheet->opaque == opaque && sheet->size == size;
    if (!same)
        sheet = std::make_shared<LinkSheet>(LinkSheet{std::move(lines), opaque, size, {}, 0});
}

void paintsheet(LinkSheet& sheet, QPainter& painter)
{
    const double scale = imagescale(sheet, painter);
    if (scale == 0) {
        paintlines(sheet, painter);
        return;
    }
    if (sheet.scale != scale) {
        sheet.image = makeimage(sheet, scale);
        sheet.scale = scale;
    }
    painter.drawImage(QPointF(0, 0), sheet.image);
}
