#include "network/windows/netdialogtest.h"

#include <QAbstractButton>
#include <QTest>

using FrmNetTopology = NetDialogTest;

TEST_F(FrmNetTopology, HasTheseCaptions)
{
    open(1);
    const auto caption = [this](const char* name) {
        return find<QAbstractButton>(name)->text().toStdString();
    };
    EXPECT_EQ(caption("topology0"), "Réseau de voix (Commande/Subordonné/Relais)");
    EXPECT_EQ(caption("topology1"), "Réseau de données,  topologie en étoile (Maître/Esclave)");
    EXPECT_EQ(caption("topology2"), "Réseau de données, essaim (Noeud/Terminal)");
    EXPECT_EQ(caption("visible"), "Visible");
    EXPECT_EQ(label("maxretranslabel"), "Nombre maximal de retransmissions");
    EXPECT_EQ(label("maxretranshint"), "0 à 20 retransmissions");
}

TEST_F(FrmNetTopology, AChoiceKeepsTheNetVisible)
{
    open(1);
    click("topology1");
    EXPECT_EQ(net(1).topology, 257);
    click("topology0");
    EXPECT_EQ(net(1).topology, 256);
    EXPECT_TRUE(checked("visible"));
    click("visible");
    EXPECT_EQ(net(1).topology, 0);
    click("topology2");
    EXPECT_EQ(net(1).topology, 2);
    EXPECT_FALSE(checked("visible"));
    click("visible");
    EXPECT_EQ(net(1).topology, 258);
}

TEST_F(FrmNetTopology, RetransmissionsBelongToTheSwarm)
{
    open(1);
    for (const char* single : {"topology0", "topology1"}) {
        click(single);
        EXPECT_FALSE(enabled("maxretrans")) << single;
        EXPECT_FALSE(find<QLabel>("maxretranslabel")->isVisible()) << single;
    }
    click("topology2");
    EXPECT_TRUE(enabled("maxretrans"));
    EXPECT_TRUE(find<QLabel>("maxretranslabel")->isVisible());
}

TEST_F(FrmNetTopology, RetransmissionsAreHeldAndRounded)
{
    net(1).topology = 258;
    open(1);
    type("maxretrans", "7");
    EXPECT_EQ(net(1).maxretrans, 7);
    type("maxretrans", "2.5");
    EXPECT_EQ(net(1).maxretrans, 2);
    EXPECT_FALSE(isred("maxretrans"));
    type("maxretrans", "21");
    EXPECT_EQ(net(1).maxretrans, 20);
    EXPECT_TRUE(isred("maxretrans"));
    type("maxretrans", "1e308");
    EXPECT_EQ(net(1).maxretrans, 20);
    type("maxretrans", "-1");
    EXPECT_EQ(net(1).maxretrans, 0);
}

TEST_F(FrmNetTopology, AnotherNetShowsItsOwn)
{
    net(2).topology = 2;
    net(2).maxretrans = 9;
    open(1);
    clickrow("netlist", 1);
    EXPECT_TRUE(checked("topology2"));
    EXPECT_FALSE(checked("visible"));
    EXPECT_EQ(text("maxretrans"), "9");
    EXPECT_TRUE(enabled("maxretrans"));
    clickrow("netlist", 0);
    EXPECT_TRUE(checked("topology0"));
    EXPECT_TRUE(checked("visible"));
    EXPECT_FALSE(enabled("maxretrans"));
}
