#include "engine/itm/lr.h"
#include "engine/modelinput.h"
#include "engine/rows.h"

#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>

// Members of the packed record are handed to the checks as values (+rec.loss): they don't lie where
// a reference to them could.

using Block = std::array<double, lrblocksize>;

static LRRecord record(const ModelCase& c)
{
    LRRecord rec{};
    rec.freq = c.number("f_mhz");
    rec.ns = c.number("ns");
    rec.eps = c.number("eps");
    rec.sgm = c.number("sigma");
    rec.pol = c.whole("pol");
    rec.clim = c.whole("climat");
    rec.varmode = c.whole("mode_var");
    rec.h1 = c.number("h1_m");
    rec.h2 = c.number("h2_m");
    rec.ptime = c.number("temps_pct");
    rec.ploc = c.number("lieux_pct");
    rec.psit = c.number("situations_pct");
    return rec;
}

static Block profile(const ModelCase& c)
{
    Block prof{};
    const std::vector<double> z = c.list("profil_m");
    prof[1] = static_cast<double>(z.size() - 1);
    prof[2] = c.number("pas_m");
    std::copy(z.begin(), z.end(), prof.begin() + 3);
    return prof;
}

TEST(LR, EverySinglePathAgreesWithTheModel)
{
    const auto cases = readcases("vectors.csv");
    ASSERT_FALSE(cases.empty());
    for (const ModelCase& c : cases) {
        SCOPED_TRACE(c.text("id"));
        LRRecord rec = record(c);
        const Block prof = profile(c);
        Block losses{};
        rec.startpt = static_cast<int>(prof[1]);
        LR(prof.data(), losses.data(), &rec);
        EXPECT_NEAR(+rec.loss, c.number("perte_db"), 1e-6);
        EXPECT_NEAR(+rec.lfree, c.number("espace_libre_db"), 1e-6);
        EXPECT_NEAR(+rec.lobst, c.number("aref_db"), 1e-6);
        EXPECT_EQ(rec.los != 0, c.whole("horizon") == 0);
        EXPECT_EQ(rec.scatter != 0, c.whole("horizon") != 0 && c.whole("mode_prop") == 3);
        EXPECT_NEAR(+rec.dl1, c.number("dl1_m"), 1e-3);
        EXPECT_NEAR(+rec.dl2, c.number("dl2_m"), 1e-3);
        EXPECT_NEAR(+rec.the1, c.number("theta1_rad"), 1e-8);
        EXPECT_NEAR(+rec.the2, c.number("theta2_rad"), 1e-8);
        EXPECT_NEAR(+rec.gme, c.number("courbure_1_m"), 1e-15);
    }
}

TEST(LR, EverySampleOfARadialAgreesWithTheModel)
{
    const auto cases = readcases("radials.csv");
    ASSERT_FALSE(cases.empty());
    for (const ModelCase& c : cases) {
        SCOPED_TRACE(c.text("id"));
        LRRecord rec = record(c);
        const Block prof = profile(c);
        Block losses{};
        rec.startpt = 0;
        LR(prof.data(), losses.data(), &rec);
        const std::vector<double> expected = c.list("perte_db");
        const std::vector<double> delicate = c.list("instable");
        EXPECT_EQ(losses[3], 0);
        for (std::size_t i = 1; i <= expected.size(); ++i)
            if (delicate[i - 1] == 0) {
                EXPECT_NEAR(losses[i + 3], expected[i - 1], 1e-6) << "sample " << i;
            }
    }
}

/// A path over hills, asked for its far end.
struct HillPath : testing::Test {
    Block prof{};
    Block losses{};
    LRRecord rec{};

    HillPath()
    {
        prof[1] = 40;
        prof[2] = 250;
        for (std::size_t i = 0; i <= 40; ++i)
            prof[i + 3] = std::round(80 + 60 * std::sin(0.4 * static_cast<double>(i)));
        losses.fill(-7);
        rec.freq = 450;
        rec.ns = 301;
        rec.eps = 15;
        rec.sgm = 0.005;
        rec.clim = 5;
        rec.h1 = 20;
        rec.h2 = 5;
        rec.ptime = rec.ploc = rec.psit = 50;
        rec.startpt = 40;
        rec.lurban = 12.5;
    }
    void call() { LR(prof.data(), losses.data(), &rec); }
    void expectnopath(bool inrange)
    {
        call();
        EXPECT_EQ(+rec.loss, 1000);
        EXPECT_EQ(rec.los, 0);
        EXPECT_EQ(rec.scatter, 0);
        EXPECT_EQ(+rec.lfree, 0);
        EXPECT_EQ(losses[43], inrange ? 0 : -7);
    }
};

TEST_F(HillPath, WritesNothingButItsResults)
{
    rec.startpt = 10;
    const Block before = prof;
    std::fill(std::begin(rec.reserved1), std::end(rec.reserved1), std::uint8_t{0xa5});
    call();
    EXPECT_EQ(prof, before);
    for (std::size_t i = 0; i < lrblocksize; ++i)
        if (i < 13 || i > 43) {
            EXPECT_EQ(losses[i], -7) << i;
        } else {
            EXPECT_GT(losses[i], 0) << i;
        }
    EXPECT_EQ(+rec.lurban, 12.5);
    EXPECT_EQ(rec.reserved1[7], 0xa5);
    EXPECT_EQ(rec.startpt, 10);
}

TEST_F(HillPath, FarEndIsTheLastOfAllSamples)
{
    call();
    const double far = losses[43];
    EXPECT_EQ(far, +rec.loss);
    rec.startpt = 0;
    call();
    EXPECT_NEAR(losses[43], far, 1e-9);
    EXPECT_EQ(losses[43], +rec.loss);
    EXPECT_EQ(losses[3], 0);
}

TEST_F(HillPath, EachSampleIsTheFarEndOfThePathCutThere)
{
    rec.startpt = 0;
    call();
    const Block all = losses;
    for (int i = 1; i <= 40; ++i) {
        prof[1] = i;
        rec.startpt = i;
        call();
        EXPECT_NEAR(+rec.loss, all[static_cast<std::size_t>(i) + 3], 1e-9);
    }
}

TEST_F(HillPath, IsBlockedAndSaysSo)
{
    call();
    EXPECT_EQ(rec.los, 0);
    EXPECT_EQ(rec.scatter, 0);
    rec.h1 = rec.h2 = 400;
    call();
    EXPECT_EQ(rec.los, 1);
    EXPECT_EQ(rec.scatter, 0);
}

TEST_F(HillPath, ScattersFarBeyondTheHorizon)
{
    prof[2] = 9000;
    call();
    EXPECT_EQ(rec.los, 0);
    EXPECT_EQ(rec.scatter, 1);
}

TEST_F(HillPath, LosesLessInInterferenceMode)
{
    call();
    const LRRecord normal = rec;
    rec.interf = 1;
    call();
    EXPECT_LT(+rec.loss, +normal.loss);
    EXPECT_EQ(+rec.lfree, +normal.lfree);
    EXPECT_EQ(+rec.lobst, +normal.lobst);
}

TEST_F(HillPath, StartIsHeldOnThePath)
{
    rec.startpt = -3;
    call();
    EXPECT_EQ(losses[3], 0);
    EXPECT_EQ(losses[2], -7);
    losses.fill(-7);
    rec.startpt = 1000;
    call();
    EXPECT_EQ(losses[42], -7);
    EXPECT_EQ(losses[43], +rec.loss);
    EXPECT_EQ(losses[44], -7);
}

TEST_F(HillPath, CountOfIntervalsIsRounded)
{
    call();
    const double whole = rec.loss;
    prof[1] = 40.4;
    call();
    EXPECT_EQ(+rec.loss, whole);
}

TEST_F(HillPath, WithoutIntervalsThereIsNoPath)
{
    for (const double n :
         {0.0, -1.0, 0.4, 161.0, 1e300, std::nan(""), std::numeric_limits<double>::infinity()}) {
        prof[1] = n;
        expectnopath(false);
    }
}

TEST_F(HillPath, WithoutDistanceThereIsNoPath)
{
    for (const double step : {0.0, -90.0, std::nan(""), std::numeric_limits<double>::infinity()}) {
        prof[2] = step;
        losses.fill(-7);
        expectnopath(true);
    }
}

TEST_F(HillPath, AnElevationThatIsNoNumberMakesNoPath)
{
    prof[20] = std::nan("");
    expectnopath(true);
}

TEST(LR, LossOfFreeSpaceGrowsWithFrequencyAndDistance)
{
    Block prof{};
    Block losses{};
    LRRecord rec{};
    prof[1] = 20;
    rec.h1 = rec.h2 = 30;
    double before = 0;
    for (const double f : growing(20, 20000, 2)) {
        rec.freq = f;
        prof[2] = f / 2;
        LR(prof.data(), losses.data(), &rec);
        EXPECT_GT(+rec.lfree, before);
        EXPECT_NEAR(+rec.lfree, 32.45 + 20 * std::log10(f) + 20 * std::log10(f / 100), 1e-9);
        before = rec.lfree;
    }
}
