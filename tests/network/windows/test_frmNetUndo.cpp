// What the network dialog leaves on the stack of actions that can be taken back.

#include "base/paths.h"
#include "base/windows/undostack.h"
#include "network/windows/netdialogtest.h"
#include "network/windows/netundo.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QListWidget>
#include <QTest>

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace
{
class FrmNetUndo : public NetDialogTest
{
protected:
    FrmNetUndo() { forgetedits(); }
    ~FrmNetUndo() override { forgetedits(); }
    static std::vector<std::string> entries()
    {
        std::vector<std::string> texts;
        for (int i = 0; i < undostack().count(); ++i)
            texts.push_back(undostack().text(i).toStdString());
        return texts;
    }
};
} // namespace

TEST_F(FrmNetUndo, OnlyLookingMakesNoEntry)
{
    open();
    for (int page = 0; page < 5; ++page)
        showpage(page);
    clickrow("netlist", 4);
    click("close");
    EXPECT_THAT(entries(), IsEmpty());
}

TEST_F(FrmNetUndo, WhatIsTypedIntoAFieldIsOneEntryWhenItIsLeft)
{
    open();
    type("fmin", "430");
    EXPECT_THAT(entries(), IsEmpty());
    type("fmax", "440");
    EXPECT_THAT(entries(), ElementsAre("modifier Réseau 01 : Fréquence minimale (MHz)"));
    QTest::keyClick(find("fmax"), Qt::Key_Escape);
    EXPECT_THAT(entries(), ElementsAre("modifier Réseau 01 : Fréquence minimale (MHz)",
                                       "modifier Réseau 01 : Fréquence maximale (MHz)"));
    undostack().undo();
    EXPECT_EQ(net(1).fmax, 148);
    EXPECT_EQ(net(1).fmin, 430);
    undostack().undo();
    EXPECT_EQ(net(1).fmin, 144);
    undostack().redo();
    EXPECT_EQ(net(1).fmin, 430);
}

TEST_F(FrmNetUndo, ATextTypedBackMakesNoEntry)
{
    open();
    type("fmin", "430");
    type("fmin", "144");
    type("fmax", "148");
    EXPECT_THAT(entries(), IsEmpty());
}

TEST_F(FrmNetUndo, TheSameFieldOfAnotherRecordIsAnotherEntry)
{
    open();
    type("netname", "Alpha");
    QTest::keyClick(find<QListWidget>("netlist"), Qt::Key_Down);
    type("netname", "Bravo");
    click("close");
    EXPECT_THAT(entries(), ElementsAre("modifier Réseau 01 : Nom du réseau",
                                       "modifier Réseau 02 : Nom du réseau"));
}

TEST_F(FrmNetUndo, EachChoiceIsAnEntry)
{
    net(1).member[1] = memberbit;
    open(0);
    click("polarisation0");
    click("polarisation0"); // nothing changes
    click("urban");
    showpage(1);
    click("topology2");
    showpage(3);
    choose("role", 1);
    click("heightother");
    click("defaults");
    EXPECT_THAT(entries(),
                ElementsAre("modifier Réseau 01 : Polarisation",
                            "modifier Réseau 01 : Ajouter le facteur urbain",
                            "modifier Réseau 01 : Topologie", "modifier Réseau 01 : Rôle",
                            "modifier Réseau 01 : Hauteur d'antenne",
                            "modifier Réseau 01 : Paramètres par défaut"));
    while (undostack().canUndo())
        undostack().undo();
    EXPECT_EQ(net(1).polarisation, 1);
    EXPECT_EQ(net(1).statmode, 3);
    EXPECT_EQ(net(1).topology, 256);
    EXPECT_EQ(net(1).member[1], memberbit);
    EXPECT_EQ(network.antheights[1][1], 0);
}

TEST_F(FrmNetUndo, ACheckMarkIsAnEntryWhicheverStationWasSelected)
{
    open(3);
    find<QListWidget>("stationlist")->item(6)->setCheckState(Qt::Checked);
    EXPECT_EQ(find<QListWidget>("stationlist")->currentRow(), 6);
    EXPECT_EQ(net(1).member[7], memberbit);
    EXPECT_THAT(entries(), ElementsAre("modifier Réseau 01 : Participants"));
    undostack().undo();
    EXPECT_EQ(net(1).member[7], 0);
}

TEST_F(FrmNetUndo, APredefinedSystemIsOneEntry)
{
    ASSERT_TRUE(writefile((folder.path() + QStringLiteral("/radiosys.dat")).toStdString(),
                          "VHF\n5\n0.35\n1\n-5\n1.5\n"));
    const RadioSystem before = system(1);
    open(2);
    auto* box = find<QComboBox>("predefined");
    box->showPopup();
    box->view()->setCurrentIndex(box->model()->index(1, 0));
    QTest::keyClick(box->view(), Qt::Key_Return);
    EXPECT_THAT(entries(), ElementsAre("modifier Système 01 : VHF"));
    undostack().undo();
    EXPECT_EQ(system(1), before);
}

TEST_F(FrmNetUndo, AnnulerIsAnEntryThatBringsTheEditsBack)
{
    open();
    type("fmin", "430");
    click("cancel");
    EXPECT_THAT(entries(), ElementsAre("modifier Réseau 01 : Fréquence minimale (MHz)",
                                       "annuler les modifications des réseaux"));
    EXPECT_EQ(net(1).fmin, 144);
    undostack().undo();
    EXPECT_EQ(net(1).fmin, 430);
}
