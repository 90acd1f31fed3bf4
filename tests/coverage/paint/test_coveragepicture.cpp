#include "coverage/choice.h"
#include "coverage/paint/coveragepicture.h"
#include "coverage/slowcoverage.h"
#include "pictures/georeference.h"
#include "pictures/paint/picturetest.h"
#include "relief/paint/drawmap.h"

namespace
{
class CoveragePicture : public PictureTest
{
protected:
    void SetUp() override
    {
        PictureTest::SetUp();
        mapgrid.record.mapsize = 4;
        mapgrid.record.Mapmode = 0;
        for (const int u : {1, 2}) {
            network.nets[1].member[static_cast<std::size_t>(u)] = memberbit;
            station(u, 7.4F + 0.2F * static_cast<float>(u), 44.5F).elevation = 200;
        }
        coveragechoice = {};
        selection = {};
        coveragechoice.levels = {-120, 0};
        network.coverage.unit = 1;
        network.coverage.surfacecolour = 0x00FFFF;
        picture = drawmap(nullptr, true);
    }

    std::size_t changed(const QImage& before) const
    {
        std::size_t count = 0;
        const QImage after = surfaceimage(picture->surface);
        for (int y = 0; y < after.height(); ++y)
            for (int x = 0; x < after.width(); ++x)
                count += after.pixel(x, y) != before.pixel(x, y);
        return count;
    }
    OpenPicture* picture = nullptr;
};
} // namespace

TEST_F(CoveragePicture, IsPaintedThroughTheMaskAndKeptOnYes)
{
    const QImage before = surfaceimage(picture->surface);
    answers = {Answer::yes};
    coverage();
    EXPECT_EQ(questions, std::vector<std::string>{"Garder coverage dans l'image?"});
    EXPECT_TRUE(picture->surface.over.empty());
    EXPECT_GT(changed(before), 1500U) << "most of the 2400 pixels are served";
    const QImage& after = picture->surface.kept;
    for (int y = 0; y < after.height(); ++y)
        for (int x = 0; x < after.width(); ++x) {
            const QRgb own = before.pixel(x, y);
            const QRgb painted = after.pixel(x, y);
            EXPECT_TRUE(painted == own || painted == (own & 0xffffff00U)) << x << "," << y;
        }
    EXPECT_EQ(label2, "Complété.");
    EXPECT_TRUE(label1.starts_with("La surface couverte est de  ")) << label1;
    EXPECT_TRUE(label1.ends_with(" km carrés"));
    EXPECT_EQ(opbusy, 0);
}

TEST_F(CoveragePicture, PaintsTheSectorsOfThePlainSweep)
{
    const QImage before = surfaceimage(picture->surface);
    const CoverageOrder order = coverageorder(network.coverage, coveragechoice, selection);
    SweepCentre centre;
    ASSERT_TRUE(sweepcentre(*picture, 1, centre));
    const SlowCoverage slow = slowcoverage(network, mapgrid, order, centre.x0, centre.y0);
    QImage expected = before.copy();
    const PixelSheet sheet{reinterpret_cast<std::uint32_t*>(expected.bits()),
                           static_cast<int>(expected.bytesPerLine() / 4), expected.width(),
                           expected.height()};
    for (const SlowSector& sector : slow.sectors)
        fillquad(sheet, sector.quad, 0xffffff00U);
    answers = {Answer::no};
    EXPECT_NEAR(drawcoverage(*picture, order), slow.area_km2, 1e-9);
    EXPECT_EQ(surfaceimage(picture->surface), expected);
    EXPECT_EQ(picture->surface.kept, before) << "not kept";
    erase(picture->surface);
    EXPECT_EQ(surfaceimage(picture->surface), before);
}

TEST_F(CoveragePicture, OfAColouredMapIsOfferedOnAPlainRelief)
{
    picture->data.Mapmode = 5;
    picture->data.light = 100;
    mapgrid.record.Mapmode = 5;
    mapgrid.record.light = 335;
    const MapRecord record = mapgrid.record;
    answers = {Answer::yes, Answer::yes};
    coverage();
    EXPECT_EQ(questions, (std::vector<std::string>{"Redessiner l'image en paysage lunaire",
                                                   "Garder coverage dans l'image?"}));
    EXPECT_EQ(mapgrid.record, record) << "the map's own values are back";
    EXPECT_EQ(picture->data.Mapmode, 0);
    EXPECT_EQ(picture->data.light, 100);
}

TEST_F(CoveragePicture, NotKeptGivesTheModeBack)
{
    picture->data.Mapmode = 5;
    answers = {Answer::yes, Answer::no};
    coverage();
    EXPECT_EQ(picture->data.Mapmode, 5);
}

TEST_F(CoveragePicture, StopLeavesWhatWasPainted)
{
    const QImage before = surfaceimage(picture->surface);
    int pumps = 0;
    hooks.pumpevents = [&] {
        if (opbusy == 11 && ++pumps == 10)
            opbusy = 0;
    };
    coverage();
    EXPECT_TRUE(questions.empty()) << "a stopped coverage isn't offered";
    EXPECT_GT(changed(before), 50U);
    EXPECT_LT(changed(before), 1500U);
    EXPECT_EQ(label2, "Arrêté par l'utilisateur.");
    EXPECT_EQ(label1, "Prêt") << "and no area is told";
}

TEST_F(CoveragePicture, ShowsTheHourglassWhileItSweeps)
{
    std::vector<bool> pointer;
    hooks.busypointer = [&](bool busy) {
        EXPECT_TRUE(questions.empty()) << "the pointer is back for the question";
        pointer.push_back(busy);
    };
    answers = {Answer::no};
    coverage();
    EXPECT_EQ(pointer, (std::vector{true, false}));
}

TEST_F(CoveragePicture, CentreOutsideThePictureDoesNothing)
{
    network.units[1].lon = 20;
    coverage();
    EXPECT_TRUE(questions.empty());
    EXPECT_EQ(label1.find("La surface"), std::string::npos);
    closepicture(*picture);
    coverage();
    viscoverage("");
}

TEST_F(CoveragePicture, LegendComesWithTheRainbow)
{
    network.coverage.surfacecolour = 0;
    coveragechoice.covrainbow = true;
    colours.showlegend = 1;
    resizepicture(*picture, 60, 40);
    answers = {Answer::no};
    coverage();
    EXPECT_EQ(picture->surface.over.size(), 2U) << "the sheet and the legend over it";
}

TEST_F(CoveragePicture, ARainbowWithoutAScaleAsksNothingAndDrawsNothing)
{
    network.coverage.surfacecolour = 0;
    coveragechoice.covrainbow = true;
    coveragechoice.levels = {-90, -90};
    colours.showlegend = 1;
    picture->data.Mapmode = 1; // one that is asked about
    const QImage before = surfaceimage(picture->surface);
    coverage();
    EXPECT_TRUE(questions.empty());
    EXPECT_TRUE(picture->surface.over.empty());
    EXPECT_EQ(changed(before), 0U);
    EXPECT_EQ(opbusy, 0);
}

TEST_F(CoveragePicture, APictureClosedBeforeTheFirstStepEndsTheRun)
{
    for (const bool radio : {true, false}) {
        hooks.pumpevents = [] {
            if (!openpictures.empty() && opbusy == 0)
                closepicture(*openpictures.back());
        };
        if (radio)
            coverage();
        else
            viscoverage("");
        EXPECT_TRUE(openpictures.empty());
        EXPECT_TRUE(questions.empty());
        EXPECT_EQ(opbusy, 0);
        hooks.pumpevents = [] {};
        picture = drawmap(nullptr, true);
    }
}

TEST_F(CoveragePicture, APictureClosedBeforeItIsDrawnAnewEndsTheRun)
{
    picture->data.Mapmode = 1;
    answers = {Answer::yes};
    hooks.pumpevents = [] {
        if (!openpictures.empty() && opbusy == 0)
            closepicture(*openpictures.back());
    };
    coverage();
    EXPECT_TRUE(openpictures.empty());
    EXPECT_EQ(opbusy, 0);
}

TEST_F(CoveragePicture, VisualCoverageIsPaintedInItsColour)
{
    const QImage before = surfaceimage(picture->surface);
    network.coverage.visualcolour = 0xFFFF00;
    network.coverage.sensorheight = 500;
    answers = {Answer::yes};
    viscoverage("");
    EXPECT_EQ(questions, std::vector<std::string>{"Garder la couverture dans l'image?"});
    EXPECT_GT(changed(before), 1500U);
    const QImage& after = picture->surface.kept;
    for (int y = 0; y < after.height(); ++y)
        for (int x = 0; x < after.width(); ++x)
            EXPECT_TRUE(after.pixel(x, y) == before.pixel(x, y) ||
                        after.pixel(x, y) == (before.pixel(x, y) & 0xff00ffffU));
}

TEST_F(CoveragePicture, MissingRadarFileEndsTheRun)
{
    const QImage before = surfaceimage(picture->surface);
    viscoverage("no such file.rad");
    EXPECT_EQ(changed(before), 0U);
    EXPECT_TRUE(questions.empty());
    EXPECT_EQ(opbusy, 0);
}

TEST_F(CoveragePicture, CountsItsRadialsAndKeepsTheNetworks)
{
    const Job job = coveragejob(42);
    EXPECT_EQ(job.number, 11);
    EXPECT_STREQ(job.text, "Calcul de la couverture ...");
    EXPECT_EQ(job.total, 42);
    EXPECT_FALSE(job.value);
    EXPECT_FALSE(job.erasesnets);
}
