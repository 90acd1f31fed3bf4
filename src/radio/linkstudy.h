#pragma once

#include "radio/analysis.h"

#include <string>

/// One link as its window shows it: the choice of stations and net, the model's blocks, and the
/// analysis. Its profile is terrain with the earth's bulge once it is done.
struct LinkStudy {
    int a = 0;   ///< left station, the transmitter
    int b = 0;   ///< right station, the receiver
    int net = 0; ///< 0: no net
    bool done = false;
    std::string namea; ///< of the stations, UTF-8
    std::string nameb;
    Link link;
    LinkAnalysis analysis;
};

/// Analyses a link into the study; a net below 0 counts as none. False when the stations have no
/// profile: the study isn't done then, and keeps its texts.
bool studylink(const NetworkTables& tables, const MapGrid& map, int a, int b, int net,
               const AnalysisOptions& options, LinkStudy& study);
