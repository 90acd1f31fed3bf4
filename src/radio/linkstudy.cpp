#include "radio/linkstudy.h"

#include "base/numbers.h"

bool studylink(const NetworkTables& tables, const MapGrid& map, int a, int b, int net,
               const AnalysisOptions& options, LinkStudy& study)
{
    study.a = a;
    study.b = b;
    study.net = smax(net, 0);
    study.namea = tables.unit(a).name.text();
    study.nameb = tables.unit(b).name.text();
    study.done = analyselink(tables, map, a, b, study.net, options, study.link, study.analysis);
    return study.done;
}
