// The dialog round its pages: opening, the list of nets, its buttons and its closing.

#include "base/hooks.h"
#include "network/windows/netdialogtest.h"

#include <QAbstractButton>
#include <QListWidget>
#include <QTabWidget>
#include <QTest>

#include <set>

using FrmNet = NetDialogTest;

TEST_F(FrmNet, OpensOnTheNetUsedLastWithAllNetsInItsList)
{
    net(3).name.assign("  Secours, \"nord\"  ");
    selection.curnet = 3;
    open();
    EXPECT_EQ(dialog->windowTitle(), QStringLiteral("Propriétés des réseaux"));
    EXPECT_EQ(find<QListWidget>("netlist")->count(), 25);
    EXPECT_EQ(find<QListWidget>("netlist")->currentRow(), 2);
    EXPECT_EQ(rowtext("netlist", 0), "Réseau 01");
    EXPECT_EQ(rowtext("netlist", 2), "Secours, \"nord\"");
    EXPECT_EQ(text("netname"), "Secours, \"nord\"");
}

TEST_F(FrmNet, ANumberOfNoNetIsHeldWithinTheTable)
{
    selection.curnet = 99;
    open();
    EXPECT_EQ(selection.curnet, 25);
    dialog.reset();
    selection.curnet = -4;
    open();
    EXPECT_EQ(selection.curnet, 1);
}

TEST_F(FrmNet, ItsPagesStandInThisOrder)
{
    open();
    const auto* pages = find<QTabWidget>("pages");
    QStringList captions;
    for (int i = 0; i < pages->count(); ++i)
        captions << pages->tabText(i);
    EXPECT_EQ(captions, QStringList({QStringLiteral("Paramètres"), QStringLiteral("Topologie"),
                                     QStringLiteral("Système"), QStringLiteral("Participants"),
                                     QStringLiteral("Style")}));
}

TEST_F(FrmNet, OpeningItIsAChangeOfTheNetworkAndErasesTheNets)
{
    int erased = 0;
    hooks.erasenets = [&erased] { ++erased; };
    const NetworkTables before = network;
    open();
    EXPECT_TRUE(netdirty);
    EXPECT_EQ(erased, 1);
    for (int page = 0; page < 5; ++page)
        showpage(page);
    QTest::keyClick(dialog.get(), Qt::Key_Escape);
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_TRUE(network == before) << "what is only shown is not written";
}

TEST_F(FrmNet, WhatAForeignFileHoldsIsShownWithoutBeingWritten)
{
    net(1).topology = 7;
    net(1).polarisation = -3;
    net(1).climate = 12;
    net(1).statmode = 77;
    net(1).fmin = 1;
    net(1).ptime = std::numeric_limits<float>::quiet_NaN();
    net(1).system.fill(0);
    net(1).member.fill(255);
    system(1).threshold = std::numeric_limits<float>::infinity();
    network.antheights[1].fill(-5);
    const Net before = net(1);
    open();
    for (int page = 0; page < 5; ++page)
        showpage(page);
    clickrow("netlist", 1);
    clickrow("netlist", 0);
    EXPECT_EQ(net(1).topology, before.topology);
    EXPECT_EQ(net(1).polarisation, before.polarisation);
    EXPECT_EQ(net(1).climate, before.climate);
    EXPECT_EQ(net(1).statmode, before.statmode);
    EXPECT_EQ(net(1).fmin, before.fmin);
    EXPECT_EQ(net(1).member, before.member);
    EXPECT_EQ(net(1).system, before.system);
}

TEST_F(FrmNet, ANetIsChosenByMouseAndArrowKeys)
{
    net(2).fmin = 430;
    open();
    clickrow("netlist", 1);
    EXPECT_EQ(selection.curnet, 2);
    EXPECT_EQ(text("fmin"), "430");
    QTest::keyClick(find<QListWidget>("netlist"), Qt::Key_Down);
    EXPECT_EQ(selection.curnet, 3);
    EXPECT_EQ(text("fmin"), "144");
    dialog.reset();
    EXPECT_EQ(selection.curnet, 3) << "the choice outlives the dialog";
}

TEST_F(FrmNet, DefaultsKeepNameMembersSystemsAndRetransmissions)
{
    net(1).name.assign("Alpha");
    net(1).member[5] = 130;
    net(1).system[5] = 4;
    net(1).maxretrans = 6;
    net(1).fmin = 400;
    net(1).topology = 2;
    net(1).statmode = 100;
    open();
    click("defaults");
    Net expected;
    expected.name.assign("Alpha");
    expected.system.fill(1);
    expected.system[5] = 4;
    expected.member[5] = 130;
    expected.maxretrans = 6;
    expected.system[0] = net(1).system[0]; // never read
    EXPECT_TRUE(net(1) == expected);
    EXPECT_EQ(text("fmin"), "144");
    EXPECT_TRUE(checked("statmode3"));
    EXPECT_TRUE(dialog->isVisible());
}

TEST_F(FrmNet, EscapeLeavesTheRecordsAsEdited)
{
    open();
    type("fmin", "30.5");
    QTest::keyClick(find("fmin"), Qt::Key_Escape);
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(net(1).fmin, 30.5F);
}

TEST_F(FrmNet, SoDoesItsOwnButton)
{
    open();
    type("fmin", "30.5");
    click("close");
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(net(1).fmin, 30.5F);
}

TEST_F(FrmNet, AnnulerBringsBackNetsAndSystemsAndKeepsHeights)
{
    net(1).member[1] = memberbit;
    const NetworkTables before = network;
    open();
    type("fmin", "30.5");
    clickrow("netlist", 7);
    type("netname", "Huitième");
    showpage(2);
    type("power", "99");
    showpage(3);
    clickrow("netlist", 0);
    click("heightother");
    type("ownheight", "25");
    click("cancel");
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(network.nets, before.nets);
    EXPECT_EQ(network.systems, before.systems);
    EXPECT_EQ(network.antheights[1][1], 25);
    EXPECT_TRUE(netdirty);
}

TEST_F(FrmNet, EnterInAFieldPressesNoButton)
{
    open();
    type("fmin", "30.5");
    QTest::keyClick(find("fmin"), Qt::Key_Return);
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(net(1).fmin, 30.5F);
}

TEST_F(FrmNet, EveryFieldHasAnAccessibleName)
{
    open();
    for (const QWidget* widget : dialog->findChildren<QWidget*>()) {
        const bool unnamed =
            widget->objectName().isEmpty() || widget->objectName().startsWith(QLatin1String("qt_"));
        const bool ofbar = qobject_cast<const QTabBar*>(widget->parent()) != nullptr;
        if ((widget->focusPolicy() & Qt::TabFocus) == 0 || unnamed || ofbar)
            continue;
        const auto* button = qobject_cast<const QAbstractButton*>(widget);
        const bool named = button ? !button->text().isEmpty() : !widget->accessibleName().isEmpty();
        EXPECT_TRUE(named || widget->inherits("QTabWidget") || widget->inherits("QTabBar"))
            << widget->objectName().toStdString();
    }
}
