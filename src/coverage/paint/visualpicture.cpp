#include "app/base/operation.h"
#include "coverage/choice.h"
#include "coverage/paint/coveragepicture.h"
#include "network/tables.h"
#include "pictures/paint/keepdrawing.h"
#include "pictures/paint/overlay.h"

static void paintview(OpenPicture& picture, const ViewSweep& sweep, std::int32_t colour)
{
    CoverageSheet sheet(picture);
    const PenMode mode = paintmode();
    const std::uint32_t pixel = pixelof(colour);
    runview(
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
}

void drawviewshed(OpenPicture& picture, const ViewOrder& order, int unit, std::int32_t colour)
{
    SweepCentre centre;
    if (unit < 1 || unit > MAXUNIT || !sweepcentre(picture, unit, centre))
        return;
    const float ground_m = network.units[static_cast<std::size_t>(unit)].elevation;
    const auto sweep = prepareview(mapgrid, order, centre, ground_m);
    if (!sweep)
        return;
    picturehooks.showpicture(picture);
    erasenets();
    if (covpicture(picture)) {
        beginop(Operation::coverage);
        optotal = static_cast<float>(sweep->azimuths.size()) - 1;
        paintview(picture, *sweep, colour);
        if (opbusy != 0)
            keepdrawing(picture, "la couverture ");
    }
    endop();
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
