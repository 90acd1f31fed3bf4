#pragma once

#include "reports/reportlines.h"

#include <QFont>
#include <QPagedPaintDevice>
#include <QPointF>

class QPainter;

/// Fixed-pitch font of reports, "Courier New" or what the system has in its place.
QFont reportfont(double points);

/// Paints lines in columns of one width each, the first line's top at the given point. The
/// painter's font must have a fixed pitch.
///   first, count  lines to paint
void paintreport(QPainter& painter, const QPointF& top, const ReportLines& lines, std::size_t first,
                 std::size_t count, bool coloured);

/// Writes a report on pages at 12 points, every column kept: upright pages, broad ones when a line
/// is wider than that, and only for still wider lines a smaller font.
void printreport(QPagedPaintDevice& device, const ReportLines& lines);
