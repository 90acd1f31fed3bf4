#include "radio/windows/frmLink.h"

#include "base/busy.h"
#include "base/hooks.h"
#include "base/operation.h"
#include "base/paths.h"
#include "base/session.h"
#include "base/settings.h"
#include "network/commonnets.h"
#include "network/unsaved.h"
#include "network/windows/lists.h"
#include "network/windows/netundo.h"
#include "radio/exportprofile.h"
#include "radio/paint/linkpicture.h"
#include "radio/windows/linkview.h"
#include "radio/windows/stationcolumn.h"

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
constexpr double cursorstep = 0.5; // samples that an arrow key moves the cursor
} // namespace

frmLink::frmLink(QWidget* parent) : QDialog(parent, Qt::Window)
{
    setObjectName(QStringLiteral("frmLink"));
    setWindowTitle(QStringLiteral("Lien radio"));
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(6, 6, 6, 6);
    column->addLayout(makelists());
    column->addLayout(makecolumns());
    view = new LinkView(this);
    column->addWidget(view, 1);
    makemenus();
    connect(view, &LinkView::moved, this, [this](double share, bool pressed) {
        const GraphScale scale = profilescale(shown);
        showcursor(scale.left + share * scale.width, pressed);
    });
    connect(view, &LinkView::stepped, this,
            [this](int direction) { showcursor(cursorx + direction * cursorstep, false); });
    refill();
    place();
    view->setFocus();
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
    view->setgraph({});
    fillnets();
    if (chosennet() > 0)
        showprofile();
    else
        fillcolumns();
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
        TablesEdit edit(QStringLiteral("hauteur d'antenne de ") +
                        QString::fromStdString(unitat(unit).name.text()));
        network.height(net, unit) = height;
        markedited();
        edit.done();
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

void frmLink::copy()
{
    auto* copied = new QMimeData;
    copied->setImageData(view->picture().toImage());
    if (transmitter() > 0 && receiver() > 0)
        copied->setText(QString::fromStdString(
            profilecopytext(unitat(transmitter()), unitat(receiver()), sidemargin)));
    QApplication::clipboard()->setMimeData(copied);
}

bool frmLink::writeprofile(const std::string& name) const
{
    const Busy busy;
    return exportprofile(name, network, mapgrid, transmitter(), receiver(), chosennet(),
                         linkoptions());
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
    if (writeprofile(name))
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
