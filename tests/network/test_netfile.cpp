#include "base/paths.h"
#include "network/netfile.h"
#include "support/rawbytes.h"

#include <gtest/gtest.h>
#include <random>

/// Tables whose every byte in the file is of its own.
static NetworkTables oddtables()
{
    NetworkTables tables = defaulttables();
    tables.units[1].lon = -84.5F;
    tables.units[1].lat = 36.25F;
    tables.units[1].elevation = 512;
    tables.units[1].enabled = 0;
    tables.units[1].transparent = -1;
    tables.units[1].forecolour = 0x010203;
    tables.units[1].backcolour = 0x040506;
    tables.units[1].name.assign("Crête");
    tables.units[50].lon = 7;
    tables.systems[25].power = 25;
    tables.systems[25].threshold = -113;
    tables.systems[25].lineloss = 1.5F;
    tables.systems[25].gain = 6;
    tables.systems[25].height = 12;
    Net& net = tables.nets[2];
    net.member[1] = 129;
    net.member[50] = 130;
    net.system[1] = 3;
    net.system[50] = 25;
    net.fmin = 30;
    net.fmax = 88;
    net.polarisation = 0;
    net.permittivity = 4;
    net.conductivity = 0.001F;
    net.refractivity = 250;
    net.climate = 7;
    net.statmode = 102;
    net.ptime = 90;
    net.plocation = 80;
    net.psituation = 70;
    net.maxretrans = 20;
    net.topology = 258;
    net.name.assign("Essaim");
    tables.coverage.rangemax = 61;
    tables.coverage.azstep = 3;
    tables.coverage.antfile.assign("yagi.ant");
    tables.coverage.unit = 2;
    tables.coverage.spare = 9;
    tables.coverage.drawcurve = -1;
    tables.coverage.curvecolour = 0x112233;
    tables.coverage.visualcolour = 0x445566;
    tables.antheights[2][1] = 17;
    tables.antheights[25][50] = 18;
    tables.icons[1] = 255;
    tables.icons[50] = 4;
    return tables;
}

static NetStatus parse(const std::string& bytes, NetworkTables& tables, NetFile& file)
{
    return parsenet(asbytes(bytes), tables, file);
}

TEST(NetFileFormat, EveryFieldStandsAtItsOffset)
{
    const std::string bytes = netbytes(oddtables(), "c:\\été.map", {"a.bmp", "b.bmp"});
    EXPECT_EQ(bytes.substr(0, 4), std::string("\x00\x00\xFA\x44", 4));
    const std::size_t unit = 4;
    EXPECT_EQ(rawvalue<float>(bytes, unit), -84.5F);
    EXPECT_EQ(rawvalue<float>(bytes, unit + 4), 36.25F);
    EXPECT_EQ(rawvalue<float>(bytes, unit + 8), 512);
    EXPECT_EQ(rawvalue<short>(bytes, unit + 12), 0);
    EXPECT_EQ(rawvalue<short>(bytes, unit + 14), -1);
    EXPECT_EQ(rawvalue<int>(bytes, unit + 16), 0x010203);
    EXPECT_EQ(rawvalue<int>(bytes, unit + 20), 0x040506);
    EXPECT_EQ(bytes.substr(unit + 24, 20), "Cr\xEAte               ");
    EXPECT_EQ(rawvalue<float>(bytes, unit + 2156), 7); // station 50
    const std::size_t system = 2204 + 24 * 50;
    EXPECT_EQ(rawvalue<float>(bytes, system), 25);
    EXPECT_EQ(rawvalue<float>(bytes, system + 4), -113);
    EXPECT_EQ(rawvalue<float>(bytes, system + 8), 1.5F);
    EXPECT_EQ(rawvalue<float>(bytes, system + 12), 6);
    EXPECT_EQ(rawvalue<float>(bytes, system + 16), 12);
    EXPECT_EQ(bytes.substr(system + 20, 30), "Syst\xE8me 25                    ");
    const std::size_t net = 3454 + 172;
    EXPECT_EQ(bytes[net], '\x81');
    EXPECT_EQ(bytes[net + 49], '\x82');
    EXPECT_EQ(bytes[net + 50], 3);
    EXPECT_EQ(bytes[net + 99], 25);
    EXPECT_EQ(rawvalue<float>(bytes, net + 100), 30);
    EXPECT_EQ(rawvalue<float>(bytes, net + 104), 88);
    EXPECT_EQ(rawvalue<short>(bytes, net + 108), 0);
    EXPECT_EQ(rawvalue<float>(bytes, net + 110), 4);
    EXPECT_EQ(rawvalue<float>(bytes, net + 114), 0.001F);
    EXPECT_EQ(rawvalue<float>(bytes, net + 118), 250);
    EXPECT_EQ(rawvalue<short>(bytes, net + 122), 7);
    EXPECT_EQ(rawvalue<short>(bytes, net + 124), 102);
    EXPECT_EQ(rawvalue<float>(bytes, net + 126), 90);
    EXPECT_EQ(rawvalue<float>(bytes, net + 130), 80);
    EXPECT_EQ(rawvalue<float>(bytes, net + 134), 70);
    EXPECT_EQ(rawvalue<short>(bytes, net + 138), 20);
    EXPECT_EQ(rawvalue<short>(bytes, net + 140), 258);
    EXPECT_EQ(bytes.substr(net + 142, 30), "Essaim                        ");
}

TEST(NetFileFormat, WhatFollowsTheTablesStandsInOrder)
{
    const std::string bytes = netbytes(oddtables(), "c:\\été.map", {"a.bmp", "", "b.bmp"});
    const std::size_t coverage = 7754;
    EXPECT_EQ(rawvalue<float>(bytes, coverage), 61);
    EXPECT_EQ(rawvalue<float>(bytes, coverage + 8), 360);
    EXPECT_EQ(rawvalue<float>(bytes, coverage + 12), 3);
    EXPECT_EQ(bytes.substr(coverage + 20, 20), "yagi.ant            ");
    EXPECT_EQ(rawvalue<short>(bytes, coverage + 40), 2);
    EXPECT_EQ(rawvalue<float>(bytes, coverage + 42), 9);
    EXPECT_EQ(rawvalue<short>(bytes, coverage + 46), -1);
    EXPECT_EQ(rawvalue<int>(bytes, coverage + 48), 0x00FFFF);
    EXPECT_EQ(rawvalue<short>(bytes, coverage + 52), -1);
    EXPECT_EQ(rawvalue<int>(bytes, coverage + 54), 0x112233);
    EXPECT_EQ(rawvalue<float>(bytes, coverage + 58), 2);
    EXPECT_EQ(rawvalue<float>(bytes, coverage + 62), 2);
    EXPECT_EQ(rawvalue<float>(bytes, coverage + 66), 0);
    EXPECT_EQ(rawvalue<int>(bytes, coverage + 70), 0x445566);
    const std::string names =
        rawstring("c:\\\xE9t\xE9.map") + rawstring("a.bmp") + rawstring("b.bmp") + rawstring("");
    EXPECT_EQ(bytes.substr(7828, names.size()), names);
    const std::size_t heights = 7828 + names.size();
    EXPECT_EQ(rawvalue<float>(bytes, heights + 4), 17); // net 2, station 1: nets run fastest
    EXPECT_EQ(rawvalue<float>(bytes, heights + 4996), 18);
    EXPECT_EQ(bytes[heights + 5000], '\xFF');
    EXPECT_EQ(bytes[heights + 5049], 4);
    EXPECT_EQ(bytes.size(), heights + 5050);
}

TEST(NetFileFormat, WhatIsWrittenIsReadBack)
{
    const std::vector<std::string> pictures{"/plans/été.bmp", "b.bmp"};
    NetworkTables tables;
    NetFile file;
    ASSERT_EQ(parse(netbytes(oddtables(), "/Plans/Relief.map", pictures), tables, file),
              NetStatus::ok);
    NetworkTables expected = oddtables();
    expected.nets[0] = tables.nets[0]; // no slot of the file
    expected.units[0] = tables.units[0];
    expected.systems[0] = tables.systems[0];
    for (std::size_t slot = 1; slot <= MAXNET; ++slot)
        expected.nets[slot].system[0] = tables.nets[slot].system[0];
    EXPECT_EQ(tables, expected);
    EXPECT_EQ(file.mapname, "/Plans/Relief.map");
    EXPECT_EQ(file.pictures, pictures);
    EXPECT_FALSE(file.older);
}

TEST(NetFileFormat, AnEmptyPictureListIsAZeroBehindTheMapName)
{
    const std::string bytes = netbytes(defaulttables(), "a.map", {});
    EXPECT_EQ(bytes.substr(7828, 9), rawstring("a.map") + rawstring(""));
    EXPECT_EQ(bytes.size(), 7828U + 9 + 5050);
}

TEST(NetFileFormat, AnyBytesComeBackAsTheyWere)
{
    std::mt19937 random(11);
    std::string bytes = netbytes(defaulttables(), "a.map", {"b.bmp"});
    const std::size_t names = 7828 + 2 + 5 + 2 + 5 + 2;
    for (std::size_t i = 4; i < bytes.size(); ++i)
        if (i < 7828 || i >= names)
            bytes[i] = static_cast<char>(random());
    NetworkTables tables;
    NetFile file;
    ASSERT_EQ(parse(bytes + "behind", tables, file), NetStatus::ok);
    EXPECT_EQ(netbytes(tables, file.mapname, file.pictures), bytes); // NaNs with their payload, too
}

/// Ends of the parts of a file with map name "a.map" and no picture.
static constexpr std::size_t unitsend = 2204;
static constexpr std::size_t systemsend = 3454;
static constexpr std::size_t netsend = 7754;
static constexpr std::size_t coverageend = 7828;
static constexpr std::size_t mapend = 7835;
static constexpr std::size_t picturesend = 7837;
static constexpr std::size_t heightsend = 12837;

TEST(NetFileFormat, ATruncatedFileFillsWholeTablesAndLeavesTheRest)
{
    const std::string whole = netbytes(oddtables(), "a.map", {});
    for (std::size_t size = 4; size < whole.size(); ++size) {
        NetworkTables tables = defaulttables();
        NetFile file;
        file.mapname = "before.map";
        ASSERT_EQ(parse(whole.substr(0, size), tables, file), NetStatus::truncated) << size;
        EXPECT_EQ(tables.units[1].lon, size < unitsend ? 0 : -84.5F);
        EXPECT_EQ(tables.systems[25].power, size < systemsend ? 10 : 25);
        EXPECT_EQ(tables.nets[2].fmin, size < netsend ? 144 : 30);
        EXPECT_EQ(tables.coverage.rangemax, size < coverageend ? 100 : 61);
        EXPECT_EQ(file.mapname, size < mapend ? "before.map" : "a.map");
        EXPECT_EQ(tables.antheights[2][1], size < heightsend ? 0 : 17);
        EXPECT_EQ(tables.icons[1], 0) << size;
    }
    EXPECT_EQ(whole.size(), heightsend + 50);
    EXPECT_EQ(whole.substr(mapend, picturesend - mapend), rawstring(""));
}

TEST(NetFileFormat, ANegativeLengthEndsTheReading)
{
    std::string bytes = netbytes(oddtables(), "a.map", {"b.bmp"});
    bytes.replace(mapend, 2, rawbytes(short{-5}));
    NetworkTables tables = defaulttables();
    NetFile file;
    EXPECT_EQ(parse(bytes, tables, file), NetStatus::truncated);
    EXPECT_TRUE(file.pictures.empty());
    EXPECT_EQ(file.mapname, "a.map");
}

TEST(NetFileFormat, AMapUnderANetworksNameIsNotRead)
{
    NetworkTables tables = oddtables();
    NetFile file;
    EXPECT_EQ(parse(rawbytes(5000.0F) + std::string(20000, 'x'), tables, file), NetStatus::mapfile);
    EXPECT_EQ(tables, oddtables());
    EXPECT_EQ(file.mapname, "");
}

/// The older format's bytes: the map's name, and the tables of the current one.
static std::string olderbytes(const NetworkTables& tables)
{
    return rawstring("vieux.map") + netbytes(tables, "", {}).substr(4, netsend - 4);
}

TEST(OlderNet, HasTheMapNameAndThreeTablesWithWestPositive)
{
    NetworkTables tables = oddtables();
    tables.coverage.rangemax = 33;
    NetFile file;
    ASSERT_EQ(parse(olderbytes(oddtables()), tables, file), NetStatus::ok);
    EXPECT_TRUE(file.older);
    EXPECT_EQ(file.mapname, "vieux.map");
    EXPECT_TRUE(file.pictures.empty());
    EXPECT_EQ(tables.units[1].lon, 84.5F);
    EXPECT_EQ(tables.units[1].lat, 36.25F);
    EXPECT_EQ(tables.units[50].lon, -7);
    EXPECT_EQ(rawbytes(tables.units[2].lon), rawbytes(0.0F)); // a plain zero stays one
    EXPECT_EQ(tables.nets[2], oddtables().nets[2]);
    EXPECT_EQ(tables.systems[25], oddtables().systems[25]);
    EXPECT_EQ(tables.coverage.rangemax, 33);
    EXPECT_EQ(tables.antheights[2][1], 0);
    EXPECT_EQ(tables.icons[1], 0);
}

TEST(OlderNet, ATruncatedFileLeavesTheTablesAsFarAsTheyGot)
{
    const std::string whole = olderbytes(oddtables());
    for (std::size_t size = 0; size < whole.size(); ++size) {
        NetworkTables tables = defaulttables();
        NetFile file;
        ASSERT_EQ(parse(whole.substr(0, size), tables, file), NetStatus::truncated) << size;
        EXPECT_EQ(tables.units[1].lon, size < 11 + 2200 ? 0 : 84.5F) << size;
        EXPECT_EQ(tables.nets[2].fmin, 144) << size;
    }
}

TEST(OlderNet, AForeignFileIsRefusedWhereItsFirstLengthLeadsOutside)
{
    NetworkTables tables = oddtables();
    NetFile file;
    EXPECT_EQ(parse("\x89PNG\r\n\x1A\n" + std::string(30, 'x'), tables, file),
              NetStatus::truncated);
    EXPECT_EQ(parse("", tables, file), NetStatus::truncated);
    EXPECT_EQ(parse("BM", tables, file), NetStatus::truncated);
    EXPECT_EQ(tables, oddtables());
}
