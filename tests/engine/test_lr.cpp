#include "engine/lr.h"
#include "engine/modelcases.h"

#include <array>
#include <cmath>
#include <gtest/gtest.h>

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
    if (cases.empty())
        GTEST_SKIP() << "no reference paths beside the project";
    for (const ModelCase& c : cases) {
        SCOPED_TRACE(c.text("id"));
        LRRecord rec = record(c);
        const Block prof = profile(c);
        Block losses{};
        rec.startpt = static_cast<int>(prof[1]);
        LR(prof.data(), losses.data(), &rec);
        EXPECT_NEAR(rec.loss, c.number("perte_db"), 1e-6);
        EXPECT_NEAR(rec.lfree, c.number("espace_libre_db"), 1e-6);
        EXPECT_NEAR(rec.lobst, c.number("aref_db"), 1e-6);
        EXPECT_EQ(rec.los != 0, c.whole("horizon") == 0);
        EXPECT_EQ(rec.scatter != 0, c.whole("horizon") != 0 && c.whole("mode_prop") == 3);
        EXPECT_NEAR(rec.dl1, c.number("dl1_m"), 1e-3);
        EXPECT_NEAR(rec.dl2, c.number("dl2_m"), 1e-3);
        EXPECT_NEAR(rec.the1, c.number("theta1_rad"), 1e-8);
        EXPECT_NEAR(rec.the2, c.number("theta2_rad"), 1e-8);
        EXPECT_NEAR(rec.gme, c.number("courbure_1_m"), 1e-15);
    }
}

TEST(LR, EverySampleOfARadialAgreesWithTheModel)
{
    const auto cases = readcases("radials.csv");
    if (cases.empty())
        GTEST_SKIP() << "no reference radials beside the project";
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
