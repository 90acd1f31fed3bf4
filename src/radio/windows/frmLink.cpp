#include "radio/windows/frmLink.h"

#include "base/hooks.h"
#include "base/operation.h"
#include "base/paths.h"
#include "base/session.h"
#include "base/settings.h"
#include "network/commonnets.h"
#include "network/unsaved.h"
#include "network/windows/lists.h"
#include "radio/distribution.h"
#include "radio/exportprofile.h"
#include "radio/linkrange.h"
#include "radio/paint/linkpicture.h"
#include "radio/readout.h"
#include "radio/windows/linkview.h"
#include "radio/windows/smeter.h"
#include "radio/windows/stationcolumn.h"

#include <QActionGroup>
#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QMenu>
#include <QMimeData>
#include <QScreen>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <algorithm>

LinkWindowHooks linkwindowhooks;

namespace
{
constexpr double cursorstart = 170; // samples; beyond the end of every path
constexpr double cursorstep = 0.5;  // samples that an arrow key moves the cursor

AnalysisOptions options()
{
    return {interf, session.defh1, session.defh2};
}
} // namespace

frmLink::frmLink(QWidget* parent) : QDialog(parent, Qt::Window)
{
    setObjectName(QStringLiteral("frmLink"));
    setWindowTitle(QStringLiteral("Lien radio"));
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(6, 6, 6, 6);
    column->addLayout(makelists());
    column->addLayout(makecolumns());
    Picture1 = new LinkView(this);
    column->addWidget(Picture1, 1);
    makemenus();
    connect(Picture1, &LinkView::moved, this, [this](double share, bool pressed) {
        const GraphScale scale = profilescale(shown);
        showcursor(scale.left + share * scale.width, pressed);
    });
    connect(Picture1, &LinkView::stepped, this,
            [this](int direction) { showcursor(cursorx + direction * cursorstep, false); });
    refill();
    place();
    Picture1->setFocus();
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

void frmLink::place()
{
    adjustSize();
    std::int32_t left = 0;
    std::int32_t top = 0;
    if (getsetting("LinkLeft", "").empty() || getsetting("LinkTop", "").empty())
        return;
    readsetting("LinkLeft", std::int32_t{0}, left);
    readsetting("LinkTop", std::int32_t{0}, top);
    const QRect room = screen()->availableGeometry();
    const auto held = [](int at, int first, int length, int side) {
        return std::max(first, std::min(at, first + length - side));
    };
    move(held(left / unitsperpixel, room.x(), room.width(), width()),
         held(top / unitsperpixel, room.y(), room.height(), height()));
}

void frmLink::refill()
{
    const QSignalBlocker quiet1(transmitterlist);
    const QSignalBlocker quiet2(receiverlist);
    fillstations(*transmitterlist, selection.linkunit1);
    fillstations(*receiverlist, selection.linkunit2);
    changestations();
}

void frmLink::choosestations(int a, int b)
{
    {
        const QSignalBlocker quiet1(transmitterlist);
        const QSignalBlocker quiet2(receiverlist);
        transmitterlist->setCurrentIndex(a - 1);
        receiverlist->setCurrentIndex(b - 1);
    }
    changestations();
}

int frmLink::transmitter() const
{
    return transmitterlist->currentIndex() + 1;
}

int frmLink::receiver() const
{
    return receiverlist->currentIndex() + 1;
}

int frmLink::chosennet() const
{
    return netlist->currentData().toInt();
}

bool frmLink::chosen() const
{
    return transmitter() > 0 && receiver() > 0 && transmitter() != receiver();
}

void frmLink::fillnets()
{
    const auto common =
        chosen() ? commonnets(network, transmitter(), receiver()) : std::vector<int>();
    ::fillnets(*netlist, common, QStringLiteral("Pas de réseau commun"));
}

void frmLink::changestations()
{
    shown = {};
    mark(LinkGraph::profile);
    hidecursor();
    resetmeters();
    Picture1->setgraph({});
    fillnets();
    if (chosennet() > 0)
        showprofile();
    else
        fillcolumns();
}

/// Evaluates the chosen link, and shows it by this procedure; without a profile nothing.
void frmLink::study(const std::function<void()>& show)
{
    if (studylink(network, mapgrid, transmitter(), receiver(), chosennet(), options(), shown)) {
        show();
        return;
    }
    hidecursor();
    Picture1->setgraph({});
}

void frmLink::drawprofile()
{
    Picture1->setgraph(
        [this](const QSizeF& size, QPainter& painter) { paintprofile(shown, size, painter); });
    cursorshown = true;
}

void frmLink::showprofile()
{
    if (!chosen())
        return;
    hooks.busypointer(true);
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
    hooks.busypointer(false);
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

void frmLink::fillcolumns()
{
    const int net = chosennet();
    if (net > 0) {
        leftcolumn->showfields(transmitterfields(network, net, transmitter()));
        rightcolumn->showfields(receiverfields(network, net, receiver()));
    } else {
        leftcolumn->showfields(barefields(session.defh1));
        rightcolumn->showfields(barefields(session.defh2));
    }
}

void frmLink::applyheight(bool left, const QString& typed)
{
    const float height = typedheight(typed.toStdString());
    const int net = chosennet();
    if (net > 0) {
        const int unit = left ? transmitter() : receiver();
        network.height(net, unit) = height;
        markedited();
    } else {
        (left ? session.defh1 : session.defh2) = height;
    }
    if (chosen())
        showprofile();
    else
        fillcolumns();
}

void frmLink::invert()
{
    choosestations(receiver(), transmitter());
}

void frmLink::showdetails()
{
    if (!chosen() || !shown.done)
        return;
    mark(LinkGraph::details);
    hidecursor();
    Picture1->setgraph(
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
        Picture1->setgraph({});
        return;
    }
    Picture1->setgraph(
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
    Picture1->setgraph([spread = *spread](const QSizeF& size, QPainter& painter) {
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
    Picture1->placeline((readout.x - scale.left) / scale.width);
    Picture1->settext(QString::fromStdString(readout.text));
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
    Picture1->placeline(std::nullopt);
    Picture1->settext({});
}

void frmLink::resetmeters()
{
    for (SMeter* meter : meters)
        meter->smeter(0);
}

void frmLink::copy()
{
    auto* copied = new QMimeData;
    copied->setImageData(Picture1->picture().toImage());
    if (transmitter() > 0 && receiver() > 0)
        copied->setText(QString::fromStdString(
            profilecopytext(unitat(transmitter()), unitat(receiver()), sidemargin)));
    QApplication::clipboard()->setMimeData(copied);
}

void frmLink::exportlink()
{
    if (!chosen()) {
        telluser("Pas de données exportables");
        return;
    }
    const std::string name = linkwindowhooks.asktextfile(
        session.profilefile.empty() ? userfolder() + "profile.txt" : session.profilefile);
    if (name.empty())
        return;
    session.profilefile = name;
    hooks.busypointer(true);
    const bool written =
        exportprofile(name, network, mapgrid, transmitter(), receiver(), chosennet(), options());
    hooks.busypointer(false);
    if (written)
        hooks.viewtext(name);
}

void frmLink::setbusy(bool on)
{
    editmenu->setEnabled(!on);
    viewmenu->setEnabled(!on);
    stop->setVisible(on);
}

void frmLink::reject()
{
    if (opbusy > 0)
        opbusy = 0;
    else
        close();
}

void frmLink::closeEvent(QCloseEvent* event)
{
    if (opbusy > 0) {
        opbusy = 0; // the first close only stops the work
        event->ignore();
        return;
    }
    writesetting("LinkLeft", std::int32_t{x() * unitsperpixel});
    writesetting("LinkTop", std::int32_t{y() * unitsperpixel});
    event->accept();
    linkwindowhooks.closed();
}

frmLink* linkwindow(const QWidget* parent)
{
    // One that was closed is a child until the next event.
    for (auto* window : parent->findChildren<frmLink*>(QString(), Qt::FindDirectChildrenOnly))
        if (window->isVisible())
            return window;
    return nullptr;
}

frmLink* showlink(QWidget* parent)
{
    frmLink* window = linkwindow(parent);
    if (window == nullptr) {
        window = new frmLink(parent);
        window->setAttribute(Qt::WA_DeleteOnClose);
    }
    window->show();
    window->raise();
    window->activateWindow();
    return window;
}
