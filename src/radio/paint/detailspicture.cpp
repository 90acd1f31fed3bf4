#include "radio/paint/graphstyle.h"
#include "radio/paint/linkpicture.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>

namespace
{
constexpr int smallestfont = 6; // pixels
constexpr QColor paper{246, 247, 249};
constexpr int flags = Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap;

QString detailstext(const LinkStudy& study)
{
    QString text;
    for (const std::string& line : study.analysis.linktext)
        text += QString::fromStdString(line) + QLatin1Char('\n');
    return text.remove(QLatin1Char('\r'));
}

/// The largest letters up to this size with which the text fits the page: without broken lines
/// where they stay legible so, else with them.
int fittingfont(const QString& text, const QSizeF& page, QFont font)
{
    constexpr int smallestwhole = 10; // pixels
    const int largest = font.pixelSize();
    const auto fits = [&](int pixels, double width) {
        font.setPixelSize(pixels);
        const QRectF room(0, 0, width, page.height());
        const QRectF taken = QFontMetricsF(font).boundingRect(room, flags, text);
        return taken.height() <= page.height() && taken.width() <= page.width();
    };
    constexpr double unbroken = 1e5;
    for (int pixels = largest; pixels >= smallestwhole; --pixels)
        if (fits(pixels, unbroken))
            return pixels;
    for (int pixels = largest; pixels > smallestfont; --pixels)
        if (fits(pixels, page.width()))
            return pixels;
    return smallestfont;
}
} // namespace

void paintdetails(const LinkStudy& study, const QSizeF& size, QPainter& painter)
{
    const GraphPainting graph(size, painter);
    if (!study.done)
        return;
    const double border = std::min(size.width(), size.height()) / 40;
    const QRectF sheet = QRectF(QPointF(), size).adjusted(border, border, -border, -border);
    const QRectF page = sheet.adjusted(border, border, -border, -border);
    const QString text = detailstext(study);
    QFont font = graphfont(size);
    font.setPixelSize(font.pixelSize() + 3);
    font.setPixelSize(fittingfont(text, page.size(), font));
    painter.setFont(font);
    painter.fillRect(sheet, paper);
    painter.setPen(Qt::black);
    painter.drawText(page, flags, text);
}
