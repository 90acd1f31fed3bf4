#include "network/tables.h"

#include <gtest/gtest.h>

TEST(Tables, ANewNetworkHasAllSlotsWithTheirDefaults)
{
    const NetworkTables tables = defaulttables();
    for (std::size_t slot = 1; slot <= MAXUNIT; ++slot) {
        const Unit& unit = tables.units[slot];
        EXPECT_FALSE(unit.placed());
        EXPECT_EQ(unit.enabled, -1);
        EXPECT_EQ(unit.forecolour, 0xFFFFFF);
        EXPECT_EQ(unit.backcolour, 0);
        EXPECT_EQ(tables.icons[slot], 0);
    }
    EXPECT_EQ(tables.units[1].name.text(), "Station 01");
    EXPECT_EQ(tables.units[50].name.text(), "Station 50");
    EXPECT_EQ(tables.systems[7].name.text(), "Système 07");
    EXPECT_EQ(tables.nets[25].name.text(), "Réseau 25");
    EXPECT_EQ(tables.systems[25].threshold, -107);
    for (std::size_t slot = 1; slot <= MAXNET; ++slot)
        for (int unit = 1; unit <= MAXUNIT; ++unit) {
            EXPECT_FALSE(tables.nets[slot].ismember(unit));
            EXPECT_EQ(tables.nets[slot].system[static_cast<std::size_t>(unit)], 1);
            EXPECT_EQ(tables.antheights[slot][static_cast<std::size_t>(unit)], 0);
        }
    EXPECT_TRUE(tables.nets[1].active());
    EXPECT_EQ(tables.nets[1].kind(), Topology::voice);
}

TEST(Tables, SlotsAreReachedByTheirNumber)
{
    network = defaulttables();
    EXPECT_EQ(unitat(50).name.text(), "Station 50");
    EXPECT_EQ(systemat(7).name.text(), "Système 07");
    EXPECT_EQ(netat(25).name.text(), "Réseau 25");
    network.height(3, 50) = 12;
    network.icon(50) = noicon;
    netat(3).system[50] = 9;
    EXPECT_EQ(network.antheights[3][50], 12);
    EXPECT_EQ(network.icons[50], noicon);
    EXPECT_EQ(netat(3).systemof(50), 9);
    network = {};
}

TEST(Tables, AMemberByteHoldsMembershipAndRole)
{
    Net net;
    net.member[3] = memberbit | 2;
    EXPECT_TRUE(net.ismember(3));
    EXPECT_EQ(net.role(3), 2);
    net.member[3] = 2;
    EXPECT_FALSE(net.ismember(3));
}

TEST(Tables, AStationAtLongitudeOrLatitudeZeroHasNoPlace)
{
    Unit unit;
    unit.lon = 5;
    EXPECT_FALSE(unit.placed());
    unit.lat = 45;
    EXPECT_TRUE(unit.placed());
    unit.lon = 0;
    EXPECT_FALSE(unit.placed());
}

TEST(NetDefaults, LeaveNameMembersSystemsAndRetransmissions)
{
    Net net;
    net.name.assign("Secours");
    net.member[4] = 129;
    net.system[4] = 9;
    net.maxretrans = 5;
    net.fmin = 30;
    net.topology = 2;
    net.climate = 1;
    net.ptime = 90;
    netdefaults(net);
    EXPECT_EQ(net.name.text(), "Secours");
    EXPECT_EQ(net.member[4], 129);
    EXPECT_EQ(net.system[4], 9);
    EXPECT_EQ(net.maxretrans, 5);
    EXPECT_EQ(net.fmin, 144);
    EXPECT_EQ(net.fmax, 148);
    EXPECT_EQ(net.topology, 256);
    EXPECT_EQ(net.polarisation, 1);
    EXPECT_EQ(net.permittivity, 15);
    EXPECT_EQ(net.conductivity, 0.005F);
    EXPECT_EQ(net.refractivity, 301);
    EXPECT_EQ(net.climate, 5);
    EXPECT_EQ(net.statmode, 3);
    EXPECT_EQ(net.ptime, 50);
    EXPECT_EQ(net.plocation, 50);
    EXPECT_EQ(net.psituation, 50);
}

TEST(RoleNames, FollowTheTopology)
{
    EXPECT_STREQ(rolenames(0).adjective, "ouverte");
    EXPECT_STREQ(rolenames(0).roles[2], "Relais");
    EXPECT_STREQ(rolenames(1).adjective, "en étoile");
    EXPECT_STREQ(rolenames(1).roles[0], "Maître");
    EXPECT_STREQ(rolenames(1).roles[2], "");
    EXPECT_STREQ(rolenames(2).adjective, "maillée");
    EXPECT_STREQ(rolenames(2).roles[1], "Terminal");
    EXPECT_STREQ(rolenames(9).adjective, "");
}

TEST(FindSlot, TakesANumberOrAUniqueName)
{
    NetworkTables tables = defaulttables();
    tables.units[4].name.assign("Mont d'Or");
    tables.units[9].name.assign("Relais");
    tables.units[12].name.assign("Relais");
    tables.units[13].name.assign("42 Nord");
    EXPECT_EQ(findunit(tables, "4"), 4);
    EXPECT_EQ(findunit(tables, " 50 "), 50);
    EXPECT_EQ(findunit(tables, "Mont d'Or"), 4);
    EXPECT_EQ(findunit(tables, "42 Nord"), 13);
    EXPECT_EQ(findsystem(tables, "Système 03"), 3);
    EXPECT_EQ(findnet(tables, "Réseau 25"), 25);
}

TEST(FindSlot, GivesZeroForWhatIsNotThere)
{
    NetworkTables tables = defaulttables();
    tables.units[9].name.assign("Relais");
    tables.units[12].name.assign("Relais");
    tables.units[20].name.assign("");
    for (const char* text : {"0", "51", "-1", "99999999999", "Relais", "nowhere", "", "4x"})
        EXPECT_EQ(findunit(tables, text), 0) << text;
    EXPECT_EQ(findsystem(tables, "26"), 0);
}
