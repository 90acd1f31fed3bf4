#include "app/windows/frmMain.h"
#include "app/windows/shelltest.h"
#include "base/operation.h"
#include "netoverlay/paint/overlay.h"
#include "network/tables.h"
#include "radio/link.h"
#include "radio/windows/frmLink.h"
#include "relief/paint/drawmap.h"
#include "terrain/mapgrid.h"

#include <QAction>
#include <QComboBox>
#include <QFile>
#include <QTest>

class LinkCommands : public ShellTest
{
protected:
    void SetUp() override
    {
        start();
        hooks.viewtext = [](const std::string&) {};
        mapgrid = MapGrid();
        mapgrid.record.maplon0 = 2;
        mapgrid.record.maplat0 = 45;
        mapgrid.record.mapsize = 20;
        allocatemap(mapgrid, 41, 41);
        mapframe(mapgrid);
        for (std::size_t u : {1U, 2U}) {
            Unit& unit = network.units[u];
            unit.lon = u == 1 ? 1.95F : 2.05F;
            unit.lat = 45;
            unit.name.assign(u == 1 ? "Ouest" : "Est");
            network.nets[1].member[u] = memberbit;
            network.nets[1].system[u] = 1;
        }
    }
    frmLink& open()
    {
        choose("mnuViewLink");
        frmLink* found = linkwindow(window.get());
        EXPECT_NE(found, nullptr);
        return *found;
    }
};

TEST_F(LinkCommands, TheMenuOpensOneLinkWindow)
{
    frmLink& first = open();
    EXPECT_TRUE(first.isVisible());
    EXPECT_TRUE(first.current().done);
    EXPECT_EQ(&open(), &first);
}

TEST_F(LinkCommands, OnlyStopIsLiveInItWhileAnOperationRuns)
{
    frmLink& link = open();
    auto* stop = link.findChild<QAction*>(QStringLiteral("stop"));
    ASSERT_NE(stop, nullptr);
    EXPECT_FALSE(stop->isVisible());
    beginop({.number = 11});
    EXPECT_TRUE(stop->isVisible());
    stop->trigger();
    EXPECT_EQ(opbusy, 0);
    endop();
    EXPECT_FALSE(stop->isVisible());
}

TEST_F(LinkCommands, TheExportAsksForATextFile)
{
    frmLink& link = open();
    expectfilename("Enregistrer le profile", path("profil.txt"));
    link.exportlink();
    EXPECT_TRUE(QFile::exists(QString::fromStdString(path("profil.txt"))));
}

TEST_F(LinkCommands, ItFollowsThePropagationMode)
{
    frmLink& link = open();
    link.showdetails();
    const double before = link.current().link.record.loss;
    choose("mnuFileModeInterf");
    EXPECT_TRUE(link.findChild<QAction*>(QStringLiteral("details"))->isChecked());
    EXPECT_LT(double{link.current().link.record.loss}, before);
    choose("mnuFileModeNormal");
    EXPECT_EQ(double{link.current().link.record.loss}, before);
}

TEST_F(LinkCommands, ANewNetworkLeavesNoLinkInIt)
{
    frmLink& link = open();
    network = defaulttables();
    hooks.netsloaded();
    EXPECT_FALSE(link.current().done);
    EXPECT_EQ(link.findChild<QComboBox*>(QStringLiteral("netlist"))->currentText(),
              QStringLiteral("Pas de réseau commun"));
}

TEST_F(LinkCommands, ItsOneLinkGivesWayToTheNetsWhenItCloses)
{
    network.units[3] = network.units[1]; // a station that the link has no part in
    network.units[3].lon = 2;
    drawmap(nullptr, true);
    drawnets();
    const auto drawings = currentpic->surface.over.size();
    for (const bool automatic : {true, false}) {
        window->setchecked("mnuViewAuto", automatic);
        frmLink& link = open();
        EXPECT_NE(currentpic->surface.over.size(), drawings);
        link.close();
        EXPECT_EQ(currentpic->surface.over.size() == drawings, automatic);
    }
}

TEST_F(LinkCommands, ItClosesWithTheMainWindowMinimised)
{
    open();
    window->showMinimized();
    QTest::qWait(1);
    EXPECT_TRUE(linkwindow(window.get()) == nullptr || !linkwindow(window.get())->isVisible());
}
