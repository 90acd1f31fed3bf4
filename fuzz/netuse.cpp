// A .net file taken through what the program does with it: evaluation, the texts of links, the
// report. Whatever the numbers in it are, nothing ends early, and what is no number gives no link.

#include "network/netfile.h"
#include "radio/analysis.h"
#include "radio/evaluate.h"
#include "radio/scene.h"
#include "reports/netreport.h"

#include <cmath>
#include <cstdlib>

/// A small map of hills; the stations are moved onto it, as most files place them anywhere.
static const MapGrid& hills()
{
    static const MapGrid map = scene::hillymap(24, 24, 1);
    return map;
}

static void placestations(NetworkTables& tables)
{
    for (int unit = 1; unit <= MAXUNIT; ++unit) {
        scene::place(tables.unit(unit), static_cast<float>(unit * 7 % 23),
                     static_cast<float>(unit * 5 % 23), tables.unit(unit).elevation);
        if (unit > 6)
            tables.unit(unit).enabled = 0; // enough for every rule, and thousands of runs
    }
}

static void checklinks(const NetworkTables& tables, const QualityTable& table)
{
    for (int n = 1; n <= MAXNET; ++n) {
        const Net& net = tables.net(n);
        if (std::isfinite(net.fmin) && std::isfinite(net.fmax))
            continue;
        for (int a = 1; a < MAXUNIT; ++a)
            for (int b = a + 1; b <= MAXUNIT; ++b)
                if (table.at(n, a, b) >= 50)
                    std::abort(); // a link that holds on no frequency
    }
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const NetworkTables defaults = defaulttables();
    NetworkTables tables = defaults;
    NetFile file;
    parsenet(std::as_bytes(std::span(data, size)), tables, file);
    placestations(tables);
    QualityTable table;
    evaluate(tables, hills(), true, 0, table);
    checklinks(tables, table);
    Link link;
    LinkAnalysis analysis;
    for (int n = 0; n <= 2; ++n)
        analyselink(tables, hills(), 1, 2, n, AnalysisOptions(), link, analysis);
    const ReportSources sources{&tables, &hills(), &table, "a.net", "a.map", false};
    if (reporttext(netreportlines(sources, 1, MAXNET, ReportScale::sunits, ReportTarget::file))
            .empty())
        std::abort();
    return 0;
}
