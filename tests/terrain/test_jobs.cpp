#include "terrain/jobs.h"

#include <gtest/gtest.h>

namespace
{
class TerrainJobs : public testing::Test
{
protected:
    TerrainJobs() { allocatemap(map, 1024, 768); }
    void TearDown() override { opbusy = 0; }

    MapGrid map;
};
} // namespace

TEST_F(TerrainJobs, EachHasItsNumberTextAndTotal)
{
    const struct {
        Job job;
        int number;
        const char* text;
        float total;
    } cases[] = {
        {gtopojob(map), 2, "Extraction des données GTOPO30...", 767},
        {openmapjob(), 3, "Ouverture du fichier carte...", 512},
        {statisticsjob(map), 4, "Compilation des statistiques de la carte...", 1023},
        {terrainjob(12), 5, "Extraction des données Terrain...", 12},
        {dtedjob(12, map), 6, "Extraction des données DTED...", 12},
    };
    for (const auto& expected : cases) {
        EXPECT_EQ(expected.job.number, expected.number);
        EXPECT_STREQ(expected.job.text, expected.text);
        EXPECT_EQ(expected.job.total, expected.total) << expected.text;
        EXPECT_TRUE(expected.job.erasesnets) << expected.text;
        EXPECT_FALSE(expected.job.refresh) << expected.text;
    }
}

TEST_F(TerrainJobs, RowsAndColumnsCountAsTheyAre)
{
    EXPECT_FALSE(gtopojob(map).value);
    EXPECT_FALSE(openmapjob().value);
    EXPECT_FALSE(statisticsjob(map).value);
}

TEST_F(TerrainJobs, TilesCountByThemselves)
{
    const Job job = terrainjob(12);
    optiles = 3;
    EXPECT_EQ(job.value(400), 3);
}

TEST_F(TerrainJobs, ACellCountsByItsColumns)
{
    const Job job = dtedjob(12, map);
    optiles = 3;
    EXPECT_EQ(job.value(0), 3);
    EXPECT_EQ(job.value(1023), 4);
}
