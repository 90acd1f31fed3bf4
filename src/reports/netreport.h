#pragma once

#include "network/tables.h"
#include "radio/evaluate.h"
#include "reports/reportlines.h"
#include "terrain/mapgrid.h"

#include <string>

/// What the cells of a report's matrix show.
enum class ReportScale { direct = 0, retransmissions = 1, sunits = 2 };

/// Where a report goes.
enum class ReportTarget { screen = 0, printer = 1, file = 2 };

/// What a report is made of beside the tables.
struct ReportSources {
    const NetworkTables* tables = nullptr;
    const MapGrid* map = nullptr;
    const QualityTable* quality = nullptr;
    std::string netfile; ///< names as the heading shows them
    std::string mapfile;
    bool interference = false;
};

/// Report on nets `first` to `last`, in columns counted in characters. More than one net brings the
/// general sections too. On the screen the propagation values are left out. A `first` below 1 or a
/// `last` above 25 gives an empty report.
///   columns  of the page, for a matrix broken into blocks that fit; 0: as broad as it is
ReportLines netreportlines(const ReportSources& sources, int first, int last, ReportScale scale,
                           ReportTarget target, int columns = 0);

/// What the run's own network, map and evaluation give to a report.
ReportSources reportsources();

/// Writes the report of the run on nets `first` to `last` as "report.txt" into the program's folder
/// and opens it in the desktop's text viewer.
void netreport(int first, int last, ReportScale scale);
