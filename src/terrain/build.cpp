#include "terrain/build.h"

#include "base/hooks.h"
#include "base/operation.h"
#include "base/session.h"
#include "base/settings.h"
#include "terrain/extraction.h"

#include <string>

static void savesources()
{
    for (std::size_t i = 0; i < session.drvpath.size(); ++i)
        writesetting("DRV" + std::to_string(i), session.drvpath[i]);
    writesetting("IGNMIS", ignoremissing);
}

bool buildmap(const MapOrder& order, BuildReport* report)
{
    struct Pass {
        unsigned bit;
        bool (*run)(BuildReport*);
    };
    constexpr Pass passes[] = {
        {source::terrain, getTERRAIN}, {source::gtopo30, getGTOPO30}, {source::dted, getDTED}};

    if ((order.record.sources & (source::dted | source::gtopo30 | source::terrain)) == 0)
        return false;
    mapgrid.record = order.record;
    opbusy = 1;
    ignoremissing = order.ignoremissing;
    mapdirty = true;
    allocatemap(mapgrid, order.width, order.height);
    savesources();
    for (const Pass& pass : passes)
        if ((order.record.sources & pass.bit) != 0 && !pass.run(report))
            return false;
    if (mapname.size() > 3)
        hooks.drawmap(mapname.substr(0, mapname.size() - 3) + "bmp");
    return true;
}
