// The report on random hills against a literal reading of its rules: the points in their order, the
// sum over those that are known, private antenna heights of every net.

#include "base/numbers.h"
#include "coverage/haat.h"
#include "coverage/scene.h"

#include <gmock/gmock.h>
#include <random>

using testing::HasSubstr;

namespace
{
/// A hilly map far north, where a degree of longitude is half as long, so that a missing cosine
/// shows; stations lie anywhere on it, many of them near its edges.
MapGrid northernhills(unsigned seed)
{
    MapGrid map = hillymap(420, 420);
    map.record.maplat0 = 62;
    mapframe(map);
    std::mt19937 random(seed);
    std::uniform_int_distribution<int> rough(0, 300);
    for (auto& height : map.samples)
        height = static_cast<std::int16_t>(height + rough(random));
    return map;
}

struct Literal {
    std::string table, footer;
};

Literal readliterally(const MapGrid& map, const Unit& unit, float height)
{
    const double pi = 3.14159265358979323846;
    Literal expected;
    double sum = 0;
    int count = 0;
    for (int eighth = 0; eighth < 8; ++eighth)
        for (const double miles : {2.0, 4.0, 6.0, 8.0, 10.0}) {
            const double az = eighth * 45 * pi / 180;
            const double km = miles * 1.609344;
            const double lat = double{unit.lat} + km / 111 * std::cos(az);
            const double lon =
                double{unit.lon} + km / 111 / std::cos(double{unit.lat} * pi / 180) * std::sin(az);
            float x = 0;
            float y = 0;
            float ground = 0;
            std::string text = "?";
            if (maplookup(map, static_cast<float>(lon), static_cast<float>(lat), x, y, ground)) {
                sum += double{ground};
                count += 1;
                text = formatnumber("0000.0", double{ground});
            }
            expected.table += formatnumber("000", eighth * 45) + "\t" + formatnumber("00.00", km) +
                              "\t" + text + "\r\n";
        }
    const float antenna = height + unit.elevation;
    std::string mean = "?";
    std::string haat = "?";
    if (count > 5) {
        mean = generalnumber(static_cast<float>(sum / count)) + "m";
        haat = generalnumber(static_cast<float>(double{antenna} - sum / count)) + "m";
    }
    const std::string dash = std::string(60, '-') + "\r\n";
    expected.footer = dash + "Altitude de l'antenne  : " + generalnumber(antenna) +
                      "m\r\nAltitude moyenne du sol: " + mean + "\r\n" + dash + "HAAT: " + haat +
                      "\r\n";
    return expected;
}
} // namespace

TEST(HaatLiterally, EveryPointAndTheMeanAreThoseOfTheRules)
{
    int without = 0;
    for (unsigned seed = 1; seed <= 60; ++seed) {
        const MapGrid map = northernhills(seed);
        NetworkTables tables = twostations();
        std::mt19937 random(seed);
        std::uniform_real_distribution<float> place(-0.1F, 1.1F);
        std::uniform_real_distribution<float> height(1, 90);
        const auto slot = std::uniform_int_distribution<std::size_t>(1, MAXUNIT)(random);
        const auto net = std::uniform_int_distribution<std::size_t>(1, MAXNET)(random);
        Unit& unit = tables.units[slot];
        unit.lon = map.maplon[0] + place(random) * (map.maplon[1] - map.maplon[0]);
        unit.lat = map.maplat[2] + place(random) * (map.maplat[0] - map.maplat[2]);
        unit.elevation = height(random);
        for (std::size_t n = 1; n <= MAXNET; ++n)
            tables.antheights[n][slot] = height(random);
        const HaatReport report =
            haattext(tables, map, static_cast<int>(slot), static_cast<int>(net));
        const Literal expected = readliterally(map, unit, tables.antheights[net][slot]);
        EXPECT_TRUE(report.complete);
        EXPECT_THAT(report.text, HasSubstr("\r\nHauteur de l'antenne au desssus du sol: " +
                                           generalnumber(tables.antheights[net][slot]) + "m\r\n"));
        EXPECT_THAT(report.text, HasSubstr("(m)\r\n" + expected.table)) << "seed " << seed;
        EXPECT_TRUE(report.text.ends_with(expected.footer)) << "seed " << seed << report.text;
        without += expected.footer.ends_with("HAAT: ?\r\n") ? 1 : 0;
    }
    EXPECT_GT(without, 0) << "some stations see too little of the map";
    EXPECT_LT(without, 30);
}

TEST(HaatLiterally, FiveKnownPointsGiveNoMeanAndSixGiveOne)
{
    // A strip of the map to the east, cell by cell wider, until a sixth point is on it.
    NetworkTables tables = twostations();
    std::size_t fives = 0;
    std::size_t sixes = 0;
    for (int width = 20; width < 420; ++width) {
        MapGrid map = plainmap(width, 21, 100);
        Unit& unit = tables.units[1];
        unit.lon = map.maplon[0];
        unit.lat = map.record.maplat0;
        const std::string text = haattext(tables, map, 1, 1).text;
        std::size_t known = 0;
        for (std::size_t at = text.find("\t0100.0"); at != std::string::npos;
             at = text.find("\t0100.0", at + 1))
            ++known;
        fives += known == 5 ? 1 : 0;
        sixes += known == 6 ? 1 : 0;
        EXPECT_EQ(text.ends_with("HAAT: ?\r\n"), known <= 5) << width;
    }
    EXPECT_GT(fives, 0U);
    EXPECT_EQ(sixes, 0U) << "the strip is one radial wide; the tall one below has six";
    bool six = false;
    for (int height = 21; height < 420 && !six; ++height) {
        MapGrid map = plainmap(420, height, 100);
        Unit& unit = tables.units[1];
        unit.lon = map.maplon[0];
        unit.lat = map.record.maplat0;
        const std::string text = haattext(tables, map, 1, 1).text;
        std::size_t known = 0;
        for (std::size_t at = text.find("\t0100.0"); at != std::string::npos;
             at = text.find("\t0100.0", at + 1))
            ++known;
        six = known >= 6;
        if (six) {
            EXPECT_FALSE(text.ends_with("HAAT: ?\r\n"));
        }
    }
    EXPECT_TRUE(six);
}
