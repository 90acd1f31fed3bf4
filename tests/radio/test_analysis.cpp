#include "radio/analysis.h"
#include "radio/earth.h"
#include "radio/linkscene.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <fmt/format.h>
#include <gtest/gtest.h>
#include <string>

namespace
{
/// The scene with its texts and losses at hand.
struct Study : LinkScene {
    const Link& link = study.link;
    const LinkAnalysis& analysis = study.analysis;

    Study() { tables.systems[1].height = 20; }
    const std::string& text(int line) const
    {
        return analysis.linktext[static_cast<std::size_t>(line) - 1];
    }
    double lossat(int i) const { return link.lossat(i); }
};

bool contains(const std::string& text, const std::string& part)
{
    return text.find(part) != std::string::npos;
}
} // namespace

TEST(LinkAnalysis, TellsDistanceAzimuthAndElevations)
{
    Study study;
    study.raise(30, 140);
    study.raise(31, 80);
    ASSERT_TRUE(study.run());
    EXPECT_EQ(study.text(1), " La distance entre Nord et Sud est de 30.0 km, azimut 90.0°");
    EXPECT_EQ(study.text(2), " Variation d'altitude de 60.0 m");
}

TEST(LinkAnalysis, AddsTheBulgeToTheInnerSamples)
{
    Study study;
    ASSERT_TRUE(study.run());
    const int n = study.link.profile.intervals();
    ASSERT_EQ(n, LinkScene::lastcolumn);
    EXPECT_EQ(study.link.profile.sample(0), 100);
    EXPECT_EQ(study.link.profile.sample(n), 100);
    EXPECT_DOUBLE_EQ(study.analysis.earth, earthfactor(301));
    for (int i = 1; i < n; ++i) {
        const double along = 30.0 * i / n;
        EXPECT_NEAR(study.link.profile.sample(i) - 100, earthfactor(301) * along * (30 - along),
                    1e-9)
            << i;
    }
}

TEST(LinkAnalysis, FindsTheLeastClearance)
{
    Study study;
    study.tables.systems[1].height = 60;
    study.raise(20, 130);
    ASSERT_TRUE(study.run());
    double least = 1e300;
    double where = -1;
    for (int i = 1; i < LinkScene::lastcolumn; ++i) {
        const double d1 = i * 0.5;
        const double d2 = 30 - d1;
        const double radius = std::sqrt(d1 * d2 / 30 / 146) / 0.001827906;
        const double clearance = (160 - study.link.profile.sample(i)) / radius;
        if (clearance < least) {
            least = clearance;
            where = d1;
        }
    }
    EXPECT_EQ(where, 10);
    EXPECT_NEAR(double{study.analysis.minclear}, least, 1e-6);
    EXPECT_NEAR(double{study.analysis.minclearkm}, where, 1e-6);
    EXPECT_NE(study.link.record.los, 0);
    EXPECT_EQ(study.text(3),
              fmt::format(" Le mode de propagation est la ligne-de-vue, avec dégagement minimal de "
                          "{:.1f}F1 à 10.0km",
                          least));
}

TEST(LinkAnalysis, OfOneIntervalKeepsTheClearanceThatNoPathReaches)
{
    Study study;
    scene::place(study.tables.units[2], 1, 4, 100);
    ASSERT_TRUE(study.run());
    EXPECT_EQ(study.link.profile.intervals(), 1);
    EXPECT_EQ(study.analysis.minclear, 999999995904.0F);
    EXPECT_EQ(study.analysis.minclearkm, 0);
    EXPECT_EQ(study.text(3), " Le mode de propagation est la ligne-de-vue, avec dégagement minimal "
                             "de 999999995904.0F1 à 0.0km");
}

TEST(LinkAnalysis, OneRidgeIsASingleObstacle)
{
    Study study;
    study.raise(20, 600);
    ASSERT_TRUE(study.run());
    EXPECT_EQ(study.link.record.los, 0);
    EXPECT_EQ(study.text(3), " Le mode de propagation est la diffraction avec obstruction unique");
    ASSERT_TRUE(study.analysis.crossing);
    EXPECT_NEAR(study.analysis.crossing->km, 10, 0.6) << "the rays cross over the ridge";
    EXPECT_GT(study.analysis.crossing->slope1, study.analysis.crossing->slope2)
        << "the nearer end looks up more steeply";
    EXPECT_LT(study.analysis.minclear, 0);
}

TEST(LinkAnalysis, TwoRidgesAreADoubleHorizon)
{
    Study study;
    study.raise(15, 600);
    study.raise(45, 600);
    ASSERT_TRUE(study.run());
    EXPECT_EQ(study.text(3), " Le mode de propagation est la diffraction avec horizon double");
    ASSERT_TRUE(study.analysis.crossing);
    EXPECT_NEAR(study.analysis.crossing->km, 15, 0.1);
}

TEST(LinkAnalysis, AVeryLongPathIsScatter)
{
    Study study;
    study.map.record.mapsize = 80; // 10 km a cell
    ASSERT_TRUE(study.run());
    EXPECT_NE(study.link.record.scatter, 0);
    EXPECT_EQ(study.text(3), " Le mode de propagation est la dispersion avec horizon double");
}

TEST(LinkAnalysis, OnAClearPathNoRaysCross)
{
    Study study;
    study.tables.systems[1].height = 200;
    ASSERT_TRUE(study.run());
    EXPECT_NE(study.link.record.los, 0);
    EXPECT_FALSE(study.analysis.crossing);
}

TEST(LinkAnalysis, BreaksTheLossDown)
{
    Study study;
    study.net().statmode += 100;
    ASSERT_TRUE(study.run());
    const LRRecord& record = study.link.record;
    const double rest = record.loss - record.lfree - record.lobst - record.lurban;
    const std::string expected = fmt::format(
        " La fréquence moyenne est de 146.000 MHz\r\n "
        "Espace libre = {:.1f} dB, Obstruction = {:.1f} dB, Facteur urbain = {:.1f} dB, "
        "Statistiques = {:.1f} dB\r\n "
        "Les pertes de propagation totalisent {:.1f} dB\r\n "
        "Le gain de système de Nord vers Sud est de {:.1f} dB\r\n "
        "Le gain de système de Sud vers Nord est de {:.1f} dB\r\n "
        "La pire réception ",
        double{record.lfree}, double{record.lobst}, double{record.lurban}, rest,
        double{record.loss}, study.link.gain12, study.link.gain21);
    EXPECT_TRUE(study.text(4).starts_with(expected)) << study.text(4) << '\n' << expected;
    EXPECT_GT(double{record.lurban}, 1);
}

TEST(LinkAnalysis, TellsTheWorstReception)
{
    Study study;
    study.net().ptime = 90;
    study.net().plocation = 75.25F;
    study.setmargin(0.6);
    EXPECT_TRUE(contains(study.text(4),
                         "\r\n La pire réception est 0.6 dB au-dessus du  signal requis pour "
                         "rencontrer\r\n 90.0% du temps, 75.2% des locations et 50.0% des "
                         "situations\r\n ( La pire lecture au S-mètre est S 1 )"))
        << study.text(4);
    study.setmargin(-0.4);
    EXPECT_TRUE(contains(study.text(4), "\r\n La pire réception correspond au  signal requis"));
    study.setmargin(-12.34);
    EXPECT_TRUE(contains(study.text(4), "\r\n La pire réception est 12.3 dB sous le  signal requis "
                                        "pour rencontrer\r\n "));
    EXPECT_TRUE(study.text(4).ends_with("est S 0 )"));
}

TEST(LinkAnalysis, ShowsReadingsAboveS9AsDecibels)
{
    Study study;
    study.setmargin(64);
    EXPECT_TRUE(study.text(4).ends_with("( La pire lecture au S-mètre est S 9 + 40 )"))
        << study.text(4);
    study.setmargin(25);
    EXPECT_TRUE(study.text(4).ends_with("( La pire lecture au S-mètre est S 9 )"));
}

TEST(LinkAnalysis, SaysThatInterferenceModeIsOptimistic)
{
    Study study;
    study.options.interference = 1;
    ASSERT_TRUE(study.run());
    EXPECT_TRUE(contains(study.text(4), " dB (mode interférence <optimiste>)\r\n Le gain"));
    study.options.interference = 0;
    ASSERT_TRUE(study.run());
    EXPECT_FALSE(contains(study.text(4), "interférence"));
}

TEST(LinkAnalysis, WithoutANetShowsTheProfileAlone)
{
    Study study;
    study.options.defh1 = 12;
    study.options.defh2 = 34;
    study.raise(30, 400);
    ASSERT_TRUE(study.run(0));
    EXPECT_EQ(study.text(1), " Impossibilité de montrer les détails");
    for (int line = 2; line <= 4; ++line)
        EXPECT_EQ(study.text(line), "");
    EXPECT_EQ(study.analysis.top1, 112);
    EXPECT_EQ(study.analysis.top2, 134);
    EXPECT_EQ(study.analysis.minclear, 999999995904.0F);
    EXPECT_FALSE(study.analysis.crossing);
    EXPECT_NEAR(study.link.profile.sample(30), 400 + 15 * 15 / 12.75, 1e-9);
    for (int i = 0; i <= LinkScene::lastcolumn; ++i)
        EXPECT_EQ(study.lossat(i), 0);
}

TEST(LinkAnalysis, ForgetsTheLossesOfALongerLink)
{
    Study study;
    ASSERT_TRUE(study.run());
    EXPECT_GT(study.lossat(LinkScene::lastcolumn), 0);
    scene::place(study.tables.units[2], 10, 4, 100);
    ASSERT_TRUE(study.run());
    EXPECT_GT(study.lossat(10), 0);
    for (int i = 11; i <= LinkScene::lastcolumn; ++i)
        EXPECT_EQ(study.lossat(i), 0);
}

TEST(LinkAnalysis, WithoutAProfileLeavesTheTexts)
{
    Study study;
    ASSERT_TRUE(study.run());
    const auto texts = study.analysis.linktext;
    scene::place(study.tables.units[2], -5, 4);
    EXPECT_FALSE(study.run());
    EXPECT_EQ(study.analysis.linktext, texts);
    EXPECT_EQ(study.analysis.minclear, 999999995904.0F);
}

TEST(LinkAnalysis, TopsAreAntennasAboveTheStationsGround)
{
    Study study;
    study.tables.units[1].elevation = 250.5F;
    study.tables.antheights[1][2] = 7;
    ASSERT_TRUE(study.run());
    EXPECT_EQ(study.analysis.top1, 270.5);
    EXPECT_EQ(study.analysis.top2, 107);
}

TEST(LinkAnalysis, WithoutAFrequencyMeasuresNoClearance)
{
    Study study;
    study.net().fmin = study.net().fmax = 0;
    ASSERT_TRUE(study.run());
    EXPECT_EQ(study.analysis.minclear, 999999995904.0F);
}

TEST(LinkAnalysis, SaysThatThereIsNoLinkWithoutAFiniteFrequencyOrGain)
{
    for (const bool frequency : {true, false}) {
        Study study;
        if (frequency)
            study.tables.nets[1].fmax = std::nanf("");
        else
            study.tables.systems[1].gain = HUGE_VALF;
        ASSERT_TRUE(study.run());
        EXPECT_EQ(study.text(3), " Aucun lien");
        EXPECT_TRUE(contains(study.text(4), "n'est pas un nombre fini"));
        EXPECT_EQ(study.analysis.margin, nomargin_db);
        for (int i = 0; i <= study.link.profile.intervals(); ++i)
            EXPECT_LT(study.link.gain12 - study.lossat(i), -900) << "no sample has a signal";
        EXPECT_FALSE(study.analysis.crossing);
    }
}
