#pragma once

#include "reports/reportlines.h"

#include <QFont>
#include <QPagedPaintDevice>
#include <QPointF>

#include <functional>

class QPainter;

/// Fixed-pitch font of reports, "Courier New" or what the system has in its place.
QFont reportfont(double points);

/// Paints lines in columns of one width each, the first line's top at the given point. The
/// painter's font must have a fixed pitch.
///   first, count  lines to paint
void paintreport(QPainter& painter, const QPointF& top, const ReportLines& lines, std::size_t first,
                 std::size_t count, bool coloured);

/// Gives the lines of a report for a page of so many columns; 0: as broad as they are.
using ReportLayout = std::function<ReportLines(int columns)>;

/// Writes a report on pages at 12 points: upright ones, broad ones when a line is wider than that,
/// and for still wider lines broad ones with the lines laid out anew for them.
void printreport(QPagedPaintDevice& device, const ReportLayout& layout);
