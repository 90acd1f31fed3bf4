#include "base/operation.h"
#include "network/windows/netdialogtest.h"

#include <QComboBox>
#include <QGroupBox>
#include <QListWidget>
#include <QTest>

namespace
{
class FrmNetMembers : public NetDialogTest
{
protected:
    std::string title() const { return find<QGroupBox>("member")->title().toStdString(); }
    std::string role() const { return find<QComboBox>("role")->currentText().toStdString(); }
    QStringList roles() const
    {
        QStringList texts;
        for (int i = 0; i < find<QComboBox>("role")->count(); ++i)
            texts << find<QComboBox>("role")->itemText(i);
        return texts;
    }
    bool listed(int station) const
    {
        return find<QListWidget>("stationlist")->item(station - 1)->checkState() == Qt::Checked;
    }
    /// Presses the check box of a station's line.
    void press(int station) const
    {
        clickrow("stationlist", station - 1);
        QTest::keyClick(find<QListWidget>("stationlist"), Qt::Key_Space);
    }
};
} // namespace

TEST_F(FrmNetMembers, AllStationsAreListedAndTheDisabledAreMarked)
{
    network.units[1].name.assign("Col du Pin");
    network.units[3].enabled = 0;
    net(1).member[2] = memberbit;
    open(3);
    EXPECT_EQ(find<QListWidget>("stationlist")->count(), 50);
    EXPECT_EQ(rowtext("stationlist", 0), "Col du Pin");
    EXPECT_EQ(rowtext("stationlist", 2), "Station 03 (Désactivée)");
    EXPECT_FALSE(listed(1));
    EXPECT_TRUE(listed(2));
}

TEST_F(FrmNetMembers, ACheckMarkMakesAMember)
{
    net(1).name.assign("Alpha");
    net(1).member[2] = 1;
    open(3);
    clickrow("stationlist", 1);
    EXPECT_EQ(title(), "Non membre");
    const auto colour = [this] {
        return find<QGroupBox>("member")->palette().color(QPalette::Active, QPalette::WindowText);
    };
    EXPECT_EQ(colour(), QColor(200, 0, 0));
    EXPECT_FALSE(enabled("role"));
    EXPECT_FALSE(enabled("heightother"));
    press(2);
    EXPECT_EQ(title(), "Membre de Alpha");
    EXPECT_EQ(colour(), QPalette().color(QPalette::WindowText));
    EXPECT_TRUE(enabled("role"));
    EXPECT_EQ(net(1).member[2], 129) << "the role stays in the byte";
    press(2);
    EXPECT_EQ(net(1).member[2], 1);
}

TEST_F(FrmNetMembers, EachNetHasItsOwnMembers)
{
    net(2).member[1] = memberbit;
    open(3);
    EXPECT_FALSE(listed(1));
    clickrow("netlist", 1);
    EXPECT_TRUE(listed(1));
    EXPECT_EQ(title(), "Membre de Réseau 02");
    press(1);
    EXPECT_EQ(net(2).member[1], 0);
    EXPECT_EQ(net(1).member[1], 0);
}

TEST_F(FrmNetMembers, RolesFollowTheTopology)
{
    net(1).member[1] = memberbit;
    open(3);
    EXPECT_EQ(roles(), QStringList({QStringLiteral("Commande"), QStringLiteral("Subordonné"),
                                    QStringLiteral("Relais")}));
    showpage(1);
    click("topology1");
    EXPECT_EQ(roles(), QStringList({QStringLiteral("Maître"), QStringLiteral("Esclave")}));
    click("topology2");
    EXPECT_EQ(roles(), QStringList({QStringLiteral("Node"), QStringLiteral("Terminal")}));
}

TEST_F(FrmNetMembers, ARoleIsStoredWhenItIsChosen)
{
    net(1).member[1] = memberbit;
    open(3);
    choose("role", 2);
    EXPECT_EQ(net(1).member[1], 130);
    showpage(1);
    click("topology1");
    showpage(3);
    EXPECT_EQ(role(), "Maître");
    EXPECT_EQ(net(1).member[1], 130) << "a role that the topology lacks stays until one is chosen";
    choose("system", 3);
    EXPECT_EQ(net(1).member[1], 130);
    choose("role", 1);
    EXPECT_EQ(net(1).member[1], 129);
}

TEST_F(FrmNetMembers, TheSystemShowsItsAntennaHeight)
{
    net(1).member[1] = memberbit;
    system(2).height = 12.5F;
    open(3);
    EXPECT_EQ(label("systemheight"), "2 m");
    choose("system", 1);
    EXPECT_EQ(net(1).system[1], 2);
    EXPECT_EQ(net(1).system[2], 1);
    EXPECT_EQ(label("systemheight"), "12.5 m");
    showpage(2);
    clickrow("systemlist", 1);
    type("height", "40");
    EXPECT_EQ(label("systemheight"), "40 m");
}

TEST_F(FrmNetMembers, AnAntennaOfItsOwnOrTheSystems)
{
    net(1).member[1] = memberbit;
    open(3);
    EXPECT_TRUE(checked("heightofsystem"));
    EXPECT_FALSE(enabled("ownheight"));
    click("heightother");
    EXPECT_TRUE(enabled("ownheight"));
    EXPECT_EQ(network.antheights[1][1], 2) << "the height of the field";
    type("ownheight", "25.5");
    EXPECT_EQ(network.antheights[1][1], 25.5F);
    type("ownheight", "0.1");
    EXPECT_TRUE(isred("ownheight"));
    EXPECT_EQ(network.antheights[1][1], 0.5F);
    type("ownheight", "1e308");
    EXPECT_EQ(network.antheights[1][1], 2999);
    click("heightofsystem");
    EXPECT_EQ(network.antheights[1][1], 0);
    EXPECT_FALSE(enabled("ownheight"));
}

TEST_F(FrmNetMembers, AStoredHeightSelectsOther)
{
    net(1).member.fill(memberbit);
    network.antheights[1][2] = 17;
    open(3);
    EXPECT_TRUE(checked("heightofsystem"));
    clickrow("stationlist", 1);
    EXPECT_TRUE(checked("heightother"));
    EXPECT_EQ(text("ownheight"), "17");
    clickrow("netlist", 1);
    EXPECT_TRUE(checked("heightofsystem"));
    clickrow("netlist", 0);
    EXPECT_TRUE(checked("heightother"));
    EXPECT_EQ(network.antheights[2][2], 0);
}

TEST_F(FrmNetMembers, AHeightThatIsFilledInMovesTheChoiceToOther)
{
    net(1).member[1] = memberbit;
    open(3);
    find("ownheight")->setText(QStringLiteral("0"));
    EXPECT_TRUE(checked("heightofsystem"));
    EXPECT_EQ(network.antheights[1][1], 0);
    find("ownheight")->setText(QStringLiteral("8"));
    EXPECT_TRUE(checked("heightother"));
    EXPECT_TRUE(enabled("ownheight"));
    EXPECT_EQ(network.antheights[1][1], 8);
}

TEST_F(FrmNetMembers, NothingIsStoredWhileAnOperationRuns)
{
    open(3);
    opbusy = 3;
    press(1);
    opbusy = 0;
    EXPECT_EQ(net(1).member[1], 0);
}

TEST_F(FrmNetMembers, TheNameOfTheNetIsFollowedByTheTitle)
{
    net(1).member[1] = memberbit;
    open(0);
    type("netname", "Bravo & fils");
    EXPECT_EQ(title(), "Membre de Bravo && fils") << "the mark is shown, and is no shortcut's";
}
