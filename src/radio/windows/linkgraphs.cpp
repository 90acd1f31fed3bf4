// The graphs of the link window, and the cursor that walks along them.

#include "base/busy.h"
#include "base/session.h"
#include "network/windows/lists.h"
#include "radio/distribution.h"
#include "radio/linkrange.h"
#include "radio/paint/linkpicture.h"
#include "radio/readout.h"
#include "radio/windows/frmLink.h"
#include "radio/windows/linkview.h"
#include "radio/windows/smeter.h"

#include <QActionGroup>
#include <QSignalBlocker>

static constexpr double cursorstart = 170; // samples; beyond the end of every path

AnalysisOptions linkoptions()
{
    return {interf, session.defh1, session.defh2};
}

QAction& frmLink::actionof(LinkGraph graph) const
{
    return *graphs->actions().at(static_cast<qsizetype>(graph));
}

void frmLink::mark(LinkGraph graph)
{
    inview = graph;
    actionof(graph).setChecked(true);
}

/// Evaluates the chosen link, and shows it by this procedure; without a profile nothing.
void frmLink::study(const std::function<void()>& show)
{
    if (studylink(network, mapgrid, transmitter(), receiver(), chosennet(), linkoptions(), shown)) {
        show();
        return;
    }
    hidecursor();
    view->setgraph({});
}

void frmLink::drawprofile()
{
    view->setgraph(
        [this](const QSizeF& size, QPainter& painter) { paintprofile(shown, size, painter); });
    cursorshown = true;
}

void frmLink::showprofile()
{
    if (!chosen())
        return;
    const Busy busy;
    resetmeters();
    mark(LinkGraph::profile);
    selection.linkunit1 = static_cast<std::int16_t>(transmitter());
    selection.linkunit2 = static_cast<std::int16_t>(receiver());
    selection.linknet = static_cast<std::int16_t>(chosennet());
    study([this] {
        drawprofile();
        linkwindowhooks.showlink(transmitter(), receiver(), raycolour(shown));
        showcursor(cursorstart, false);
    });
    fillcolumns();
}

void frmLink::followstation(int unit)
{
    if (unit == shown.a || unit == shown.b)
        restudy();
}

void frmLink::followtables()
{
    const int net = chosennet();
    {
        const QSignalBlocker quiet1(transmitterlist);
        const QSignalBlocker quiet2(receiverlist);
        const QSignalBlocker quiet3(netlist);
        fillstations(*transmitterlist, transmitter());
        fillstations(*receiverlist, receiver());
        fillnets();
    }
    if (chosennet() != net) {
        changestations();
        return;
    }
    fillcolumns();
    restudy();
}

void frmLink::restudy()
{
    if (shown.a == 0)
        return;
    const LinkGraph graph = inview;
    const double place = cursorx;
    resetmeters();
    study([&] {
        drawprofile();
        showcursor(place, false);
        if (graph != LinkGraph::profile)
            actionof(graph).trigger();
    });
}

void frmLink::showdetails()
{
    if (!chosen() || !shown.done)
        return;
    mark(LinkGraph::details);
    hidecursor();
    view->setgraph(
        [this](const QSizeF& size, QPainter& painter) { paintdetails(shown, size, painter); });
}

void frmLink::showrange()
{
    if (!chosen())
        return;
    mark(LinkGraph::range);
    cursorshown = shown.done;
    showcursor(cursorstart, false);
    const auto end = shown.done ? rangesample(shown.link) : std::nullopt;
    if (!end) {
        view->setgraph({});
        return;
    }
    view->setgraph(
        [this](const QSizeF& size, QPainter& painter) { paintrange(shown, size, painter); });
    showcursor(*end, false);
}

void frmLink::showdistribution()
{
    if (!chosen())
        return;
    LinkStudy scratch = shown; // the cursor goes on reading the study itself
    const auto spread =
        distribution(network, mapgrid, transmitter(), receiver(), chosennet(), interf, scratch);
    if (!spread)
        return;
    mark(LinkGraph::distribution);
    hidecursor();
    view->setgraph([spread = *spread](const QSizeF& size, QPainter& painter) {
        paintdistribution(spread, size, painter);
    });
}

void frmLink::showcursor(double x, bool pressed)
{
    if (!cursorshown || !shown.done)
        return;
    const LinkReadout readout = readlink(shown, network, mapgrid, x);
    const GraphScale scale = profilescale(shown);
    cursorx = readout.x;
    view->placeline((readout.x - scale.left) / scale.width);
    view->settext(QString::fromStdString(readout.text));
    if (readout.meter12)
        meters[1]->smeter(*readout.meter12);
    if (readout.meter21)
        meters[0]->smeter(*readout.meter21);
    if (pressed)
        linkwindowhooks.movecursor(readout.lon, readout.lat);
}

void frmLink::hidecursor()
{
    cursorshown = false;
    view->placeline(std::nullopt);
    view->settext({});
}

void frmLink::resetmeters()
{
    for (SMeter* meter : meters)
        meter->smeter(0);
}
