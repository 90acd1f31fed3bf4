#include "base/operation.h"
#include "coverage/choice.h"
#include "coverage/paint/coveragepicture.h"
#include "network/tables.h"
#include "pictures/paint/keepdrawing.h"

static std::int64_t paintview(CoverageSheet& sheet, const ViewSweep& sweep, std::int32_t colour)
{
    const std::uint32_t pixel = pixelof(colour);
    const std::uint32_t alone = PaintedLayer::pixel(pixel);
    return runview(
        sweep,
        [&](const SectorSides& sides, std::span<const SampleRun> runs) {
            const Wedge wedge(sweep.centre, sides);
            for (const auto& [first, last] : runs) {
                fillwedge(sheet.view(), wedge, first - 0.5, last + 0.5, pixel);
                if (sheet.layer != nullptr)
                    fillwedge(sheet.layer->view(), wedge, first - 0.5, last + 0.5, alone);
            }
        },
        [&](int k) {
            sheet.refresh();
            return opstep(k) != 0;
        });
}

double drawviewshed(OpenPicture& picture, const ViewOrder& order, int unit, std::int32_t colour,
                    PaintedLayer* layer)
{
    SweepCentre centre;
    if (unit < 1 || unit > MAXUNIT || !sweepcentre(picture, unit, centre))
        return 0;
    const float ground_m = unitat(unit).elevation;
    const auto sweep = prepareview(mapgrid, order, centre, ground_m);
    if (!sweep)
        return 0;
    std::int64_t rings = 0;
    double area_km2 = 0;
    const auto last = static_cast<int>(sweep->azimuths.size()) - 1;
    if (paintover(picture, last, [&](CoverageSheet& sheet) {
            sheet.addlayer(layer);
            rings = paintview(sheet, *sweep, colour);
        })) {
        keepdrawing(picture, "la couverture ");
        area_km2 = seenarea(*sweep, rings);
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
            SweepCentre centre;
            if (sweepcentre(*currentpic, selection.curunit, centre)) {
                paintover(*currentpic, 0, [](CoverageSheet&) {});
                endop();
            }
            return;
        }
    }
    drawviewshed(*currentpic, order, selection.curunit, network.coverage.visualcolour);
}
