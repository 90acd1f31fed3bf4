#pragma once

#include "radio/linkstudy.h"
#include "radio/scene.h"

#include <cstdint>

/// Stations "Nord" and "Sud" at the ends of a row of 61 cells, half a kilometre each, in net 1, on
/// a plain of 100 m that single columns can be raised from.
struct LinkScene {
    static constexpr int lastcolumn = 60;

    MapGrid map = scene::flatmap(lastcolumn + 1, 9, 100, 4);
    NetworkTables tables;
    AnalysisOptions options;
    LinkStudy study;

    LinkScene()
    {
        tables.units[1].name.assign("Nord");
        tables.units[2].name.assign(" Sud");
        scene::place(tables.units[1], 0, 4, 100);
        scene::place(tables.units[2], lastcolumn, 4, 100);
        scene::join(tables.nets[1], 1);
        scene::join(tables.nets[1], 2);
        tables.systems[1].height = 60;
    }
    Net& net() { return tables.nets[1]; }
    Link& link() { return study.link; }
    void raise(int column, int elevation_m)
    {
        for (int y = 0; y < map.height; ++y)
            map.at(column, y) = static_cast<std::int16_t>(elevation_m);
    }
    /// Leaves this many intervals between the stations.
    void shorten(int intervals)
    {
        scene::place(tables.units[2], static_cast<float>(intervals), 4, 100);
    }
    bool run(int netnumber = 1) { return studylink(tables, map, 1, 2, netnumber, options, study); }
    /// Sets the receivers so that the margin is this one.
    void setmargin(double margin_db)
    {
        run();
        tables.systems[1].threshold += static_cast<float>(study.analysis.margin - margin_db);
        run();
    }
};
