#include "app/base/operation.h"
#include "coverage/choice.h"
#include "coverage/paint/coveragepicture.h"
#include "network/tables.h"
#include "pictures/paint/keepdrawing.h"
#include "pictures/paint/overlay.h"

static std::int64_t paintview(OpenPicture& picture, const ViewSweep& sweep, std::int32_t colour)
{
    CoverageSheet sheet(picture);
    const PenMode mode = paintmode();
    const std::uint32_t pixel = pixelof(colour);
    const std::int64_t rings = runview(
        sweep,
        [&](std::span<const SectorQuad> quads) {
            for (const SectorQuad& quad : quads)
                fillquad(sheet.view(), quad, pixel, mode);
        },
        [&](int k) {
            sheet.refresh();
            return opstep(k) != 0;
        });
    picturehooks.picturechanged(picture, {});
    return rings;
}

double drawviewshed(OpenPicture& picture, const ViewOrder& order, int unit, std::int32_t colour)
{
    SweepCentre centre;
    if (unit < 1 || unit > MAXUNIT || !sweepcentre(picture, unit, centre))
        return 0;
    const float ground_m = network.units[static_cast<std::size_t>(unit)].elevation;
    const auto sweep = prepareview(mapgrid, order, centre, ground_m);
    if (!sweep)
        return 0;
    picturehooks.showpicture(picture);
    erasenets();
    double area_km2 = 0;
    if (covpicture(picture)) {
        beginop(Operation::coverage);
        optotal = static_cast<float>(sweep->azimuths.size()) - 1;
        area_km2 = seenarea(*sweep, paintview(picture, *sweep, colour));
        if (opbusy != 0)
            keepdrawing(picture, "la couverture ");
    }
    endop();
    return area_km2;
}

void viscoverage(const std::string& radarfile)
{
    if (currentpic == nullptr)
        return;
    ViewOrder order = vieworder(network.coverage, selection.visualmode);
    if (!radarfile.empty()) {
        order.radar = readradar(radarfile);
        if (!order.radar) {
            // The run ends as it began, with nothing painted.
            erasenets();
            beginop(Operation::coverage);
            endop();
            return;
        }
    }
    drawviewshed(*currentpic, order, selection.curunit, network.coverage.visualcolour);
}
