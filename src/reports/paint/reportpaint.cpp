#include "reports/paint/reportpaint.h"

#include "base/paint/colour.h"

#include <QColor>
#include <QFontMetricsF>
#include <QPageLayout>
#include <QPainter>

#include <algorithm>

namespace
{
constexpr double printpoints = 12;
constexpr double margin_mm = 15;

/// Characters of the report font that a page's paint area holds side by side at 12 points.
int pagecolumns(const QPagedPaintDevice& device)
{
    const QFontMetricsF metrics(reportfont(printpoints), &device);
    return static_cast<int>(device.width() / metrics.horizontalAdvance(QLatin1Char('0')));
}

void setorientation(QPagedPaintDevice& device, QPageLayout::Orientation orientation)
{
    device.setPageOrientation(orientation);
    device.setPageMargins(QMarginsF(margin_mm, margin_mm, margin_mm, margin_mm),
                          QPageLayout::Millimeter);
}

/// Lays the page so that the widest line fits, and returns the lines.
ReportLines fitpage(QPagedPaintDevice& device, const ReportLayout& layout)
{
    ReportLines lines = layout(0);
    setorientation(device, QPageLayout::Portrait);
    if (reportwidth(lines) <= pagecolumns(device))
        return lines;
    setorientation(device, QPageLayout::Landscape);
    const int columns = pagecolumns(device);
    return reportwidth(lines) <= columns ? lines : layout(columns);
}
} // namespace

QFont reportfont(double points)
{
    QFont font(QStringLiteral("Courier New"));
    font.setStyleHint(QFont::TypeWriter);
    font.setFixedPitch(true);
    font.setPointSizeF(points);
    return font;
}

void paintreport(QPainter& painter, const QPointF& top, const ReportLines& lines, std::size_t first,
                 std::size_t count, bool coloured)
{
    const QFontMetricsF metrics(painter.font(), painter.device());
    const double cell = metrics.horizontalAdvance(QLatin1Char('0'));
    for (std::size_t i = 0; i < count && first + i < lines.size(); ++i) {
        const double baseline =
            top.y() + static_cast<double>(i) * metrics.lineSpacing() + metrics.ascent();
        for (const ReportPiece& piece : lines[first + i]) {
            painter.setPen(coloured ? colorof(piece.colour) : QColor(Qt::black));
            painter.drawText(QPointF(top.x() + (piece.column - 1) * cell, baseline),
                             QString::fromStdString(piece.text));
        }
    }
}

void printreport(QPagedPaintDevice& device, const ReportLayout& layout)
{
    const ReportLines lines = fitpage(device, layout);
    QPainter painter(&device);
    painter.setFont(reportfont(printpoints));
    const QFontMetricsF metrics(painter.font(), &device);
    const auto rows =
        std::max<std::size_t>(1, static_cast<std::size_t>(device.height() / metrics.lineSpacing()));
    for (std::size_t first = 0; first < lines.size(); first += rows) {
        if (first > 0)
            device.newPage();
        paintreport(painter, QPointF(0, 0), lines, first, rows, false);
    }
}
