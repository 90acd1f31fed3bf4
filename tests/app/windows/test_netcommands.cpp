#include "app/windows/cleannet.h"
#include "app/windows/frmMain.h"
#include "app/windows/shelltest.h"
#include "app/windows/toolbar.h"
#include "base/session.h"
#include "netoverlay/paint/overlay.h"
#include "network/tables.h"
#include "network/windows/frmNet.h"
#include "radio/evaluate.h"
#include "radio/windows/frmLink.h"
#include "relief/paint/drawmap.h"
#include "terrain/mapgrid.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QTest>
#include <QTimer>

namespace
{
class NetCommands : public ShellTest
{
protected:
    void SetUp() override
    {
        start();
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
            network.nets[1].member[u] = memberbit;
        }
        drawmap(nullptr, true);
        drawnets();
        drawings = currentpic->surface.over.size();
    }
    /// Opens the network dialog, looks at it, and closes it with Escape.
    void opendialog(const std::function<void(frmNet&)>& look = [](frmNet&) {})
    {
        bool seen = false;
        QTimer::singleShot(0, window.get(), [&] {
            auto* dialog = qobject_cast<frmNet*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            seen = true;
            look(*dialog);
            QTest::keyClick(dialog, Qt::Key_Escape);
        });
        choose("mnuFileNetPro");
        EXPECT_TRUE(seen);
    }

    std::size_t drawings = 0;
};
} // namespace

TEST_F(NetCommands, TheMenuOpensTheDialogOverAClearedPicture)
{
    opendialog([](const frmNet&) { EXPECT_TRUE(currentpic->surface.over.empty()); });
}

TEST_F(NetCommands, TheToolbarOpensIt)
{
    QTimer::singleShot(0, window.get(), [] {
        ASSERT_TRUE(qobject_cast<frmNet*>(QApplication::activeModalWidget()));
        QApplication::activeModalWidget()->close();
    });
    ToolButton* image = window->toolbar->buttons[3];
    ASSERT_TRUE(image->isEnabled());
    QTest::mouseClick(image, Qt::LeftButton);
}

TEST_F(NetCommands, ItsClosingEvaluatesAndDrawsTheNets)
{
    const int before = quality.at(1, 1, 2);
    opendialog([](const frmNet&) { network.systems[1].power = 1000; });
    EXPECT_GT(quality.at(1, 1, 2), before);
    EXPECT_EQ(currentpic->surface.over.size(), drawings);
    EXPECT_TRUE(window->checked("mnuViewAuto"));
}

TEST_F(NetCommands, WithoutAutomaticDisplayItsClosingErasesThem)
{
    window->setchecked("mnuViewAuto", false);
    const int before = quality.at(1, 1, 2);
    opendialog([](const frmNet&) { network.systems[1].power = 1000; });
    EXPECT_EQ(quality.at(1, 1, 2), before) << "nothing is evaluated";
    EXPECT_TRUE(currentpic->surface.over.empty());
}

TEST_F(NetCommands, CleanNetAsksForSavingAfterItWasOpen)
{
    opendialog();
    bool cancel = false;
    expectquestion("Enregistrer " + session.netfile + "?", Answer::cancel);
    CleanNet(cancel);
    EXPECT_TRUE(cancel);
}

TEST_F(NetCommands, TheLinkWindowShowsTheNetsAsEdited)
{
    choose("mnuViewLink");
    frmLink* link = linkwindow(window.get());
    ASSERT_NE(link, nullptr);
    link->showdetails();
    opendialog([](const frmNet&) { network.nets[1].name.assign("Alpha"); });
    EXPECT_TRUE(link->findChild<QAction*>(QStringLiteral("details"))->isChecked());
    EXPECT_EQ(link->findChild<QComboBox*>(QStringLiteral("netlist"))->currentText(),
              QStringLiteral("Alpha"));
    EXPECT_EQ(currentpic->surface.over.size(), drawings);
}
