#include "base/paths.h"
#include "cli/handmade.h"
#include "cli/process.h"
#include "pictures/paint/picturefile.h"

#include <QImage>

#include <cstdlib>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>

using testing::HasSubstr;
using testing::StartsWith;

namespace
{
class Coverages : public CliTest
{
protected:
    void SetUp() override
    {
        CliTest::SetUp();
        write("plan.net", handmade::network());
        write("plain.map", handmade::map());
    }
    std::string content(const std::string& name) const
    {
        return readfile((folder / name).string()).value_or("");
    }
    QImage image(const std::string& name) const { return readraster((folder / name).string()); }

    /// Runs with what all tests share; returns the printed area.
    double area(std::vector<std::string> arguments) const
    {
        arguments.insert(arguments.end(),
                         {"--map", "plain.map", "--mode", "0", "--range", "100", "-o", "a.bmp"});
        return std::strtod(success(arguments).values().at("area_km2").c_str(), nullptr);
    }
};
} // namespace

TEST_F(Coverages, PaintOverTheRenderedMap)
{
    success({"render", "plain.map", "--mode", "0", "-o", "plain.bmp"});
    EXPECT_GT(area({"coverage", "plan.net", "1", "2", "1", "--unit", "dbm", "--low", "-200",
                    "--high", "-10", "--rainbow", "--azimuths", "0,360", "--step", "1"}),
              0);
    EXPECT_EQ(image("a.bmp").size(), image("plain.bmp").size());
    EXPECT_NE(image("a.bmp"), image("plain.bmp"));
    EXPECT_GT(area({"viewshed", "plan.net", "1", "--sensor", "500", "--azimuths", "0,360"}), 0);
    EXPECT_NE(image("a.bmp"), image("plain.bmp"));
}

TEST_F(Coverages, GrowWithTheSweep)
{
    const std::vector<std::string> half{"viewshed", "plan.net",   "1",    "--sensor",
                                        "500",      "--azimuths", "0,180"};
    const std::vector<std::string> whole{"viewshed", "plan.net",   "1",    "--sensor",
                                         "500",      "--azimuths", "0,360"};
    EXPECT_LT(area(half), area(whole));
}

TEST_F(Coverages, ExportForOtherMapPrograms)
{
    area({"viewshed", "plan.net", "1", "--geotiff", "a.tif", "--kml", "a.kml"});
    EXPECT_THAT(content("a.tif"), StartsWith(std::string("II*\0", 4)));
    const QImage tiff(QString::fromStdString((folder / "a.png").string()));
    EXPECT_EQ(tiff.size(), image("a.bmp").size());
    EXPECT_THAT(content("a.kml"), HasSubstr("<href>a.png</href>"));
    // The corners, 8 to 8.625 E, are the outer pixels' middles: 40 steps of 1/64 degree.
    EXPECT_THAT(content("a.kml"), HasSubstr("<west>7.9921875</west>"));
    EXPECT_THAT(content("a.kml"), HasSubstr("<east>8.6328125</east>"));
}

TEST_F(Coverages, ExportsAreTransparentWhereNothingIsPainted)
{
    area({"viewshed", "plan.net", "1", "--sensor", "500", "--azimuths", "90,180", "--colour",
          "FF0080", "--kml", "a.kml"});
    const QImage alone(QString::fromStdString((folder / "a.png").string()));
    int painted = 0;
    int clear = 0;
    for (int y = 0; y < alone.height(); ++y)
        for (int x = 0; x < alone.width(); ++x) {
            const QRgb pixel = alone.pixel(x, y);
            painted += pixel == qRgb(255, 0, 128) ? 1 : 0;
            clear += qAlpha(pixel) == 0 ? 1 : 0;
        }
    EXPECT_GT(painted, 20);
    EXPECT_EQ(painted + clear, alone.width() * alone.height());
    EXPECT_GT(clear, alone.width() * alone.height() / 2) << "a quarter is swept";
    area({"viewshed", "plan.net", "1", "--kml", "b.kml", "--relief"});
    const QImage relief(QString::fromStdString((folder / "b.png").string()));
    EXPECT_EQ(relief.convertToFormat(QImage::Format_RGB32), image("a.bmp"));
}

TEST_F(Coverages, NeedNoPicture)
{
    const double with = area({"viewshed", "plan.net", "1"});
    const auto values =
        success({"viewshed", "plan.net", "1", "--map", "plain.map", "--range", "100"}).values();
    EXPECT_EQ(std::strtod(values.at("area_km2").c_str(), nullptr), with);
    EXPECT_THAT(success({"viewshed", "plan.net", "1", "--map", "plain.map", "--json"}).out,
                HasSubstr("{\n  \"area_km2\": "));
}

TEST_F(Coverages, TakeAnotherPlaceForTheCentre)
{
    const std::vector<std::string> base{
        "coverage", "plan.net", "1",   "2",      "1", "--unit",    "dbm",        "--low",
        "-200",     "--high",   "-10", "--step", "1", "--rainbow", "--azimuths", "0,360"};
    const auto at = [&](std::vector<std::string> more) {
        more.insert(more.begin(), base.begin(), base.end());
        return area(more);
    };
    const double own = at({});
    // The station's own place, and one behind the ridge.
    EXPECT_EQ(at({"--at", "8.078125", "44.15625"}), own);
    EXPECT_NE(at({"--at", "8.4", "44.3"}), own);
    EXPECT_THAT(failure(1, {"coverage", "plan.net", "1", "2", "1", "--map", "plain.map", "--at",
                            "9", "44.2"}),
                HasSubstr("outside the map"));
    failure(2, {"coverage", "plan.net", "1", "2", "1", "--at", "9", "95"});
}

TEST_F(Coverages, FilesOfOneNameAreRefused)
{
    const auto refused = [this](std::vector<std::string> more) {
        more.insert(more.begin(), {"viewshed", "plan.net", "1", "--map", "plain.map"});
        EXPECT_THAT(failure(2, more), HasSubstr("written twice"));
    };
    refused({"-o", "a.bmp", "--geotiff", "a.bmp"});
    refused({"-o", "a.bmp", "--geotiff", "./a.BMP"});
    refused({"--kml", "a.kml", "--geotiff", "a.png"});
    refused({"-o", "a.bmp", "--kml", "a.dat"});
    refused({"--kml", "-", "--geotiff", "-"});
}

TEST_F(Coverages, PicturesOfMapsAndNetworksAreExportedToo)
{
    success({"render", "plain.map", "-o", "r.bmp", "--kml", "r.kml"});
    const QImage rendered(QString::fromStdString((folder / "r.png").string()));
    EXPECT_EQ(rendered.convertToFormat(QImage::Format_RGB32), image("r.bmp"));
    success({"draw", "plan.net", "--map", "plain.map", "-o", "d.bmp", "--kml", "d.kml"});
    const QImage drawn(QString::fromStdString((folder / "d.png").string()));
    EXPECT_EQ(drawn.convertToFormat(QImage::Format_RGB32), image("d.bmp"));
    EXPECT_NE(drawn, rendered);
}

TEST_F(Coverages, RefuseWhatCannotBeSwept)
{
    const std::vector<std::string> tail{"--map", "plain.map", "-o", "a.bmp"};
    const auto with = [&](std::vector<std::string> arguments) {
        arguments.insert(arguments.end(), tail.begin(), tail.end());
        return arguments;
    };
    EXPECT_THAT(failure(1, with({"coverage", "plan.net", "1", "1", "1"})), HasSubstr("the same"));
    EXPECT_THAT(failure(1, with({"coverage", "plan.net", "1", "2", "0"})), HasSubstr("net"));
    EXPECT_THAT(failure(1, with({"viewshed", "plan.net", "50"})), HasSubstr("outside the map"));
    EXPECT_THAT(failure(1, with({"viewshed", "plan.net", "1", "--radar", "no.rad"})),
                HasSubstr("no.rad"));
    failure(2, with({"coverage", "plan.net", "1", "2", "1", "--step", "0"}));
    failure(2, with({"coverage", "plan.net", "1", "2", "1", "--unit", "volt"}));
    EXPECT_EQ(content("a.bmp"), "");
}

TEST_F(Coverages, ReportsAreWrittenAsText)
{
    success({"report", "plan.net", "--map", "plain.map", "-o", "r.txt"});
    EXPECT_THAT(content("r.txt"), HasSubstr("G\xE9n\xE9ralit\xE9s\r\n"));
    EXPECT_THAT(content("r.txt"), HasSubstr("50 - nombre de retransmissions"));
    success({"haat", "plan.net", "1", "1", "--map", "plain.map", "-o", "h.txt"});
    EXPECT_THAT(content("h.txt"), StartsWith("HAAT, hauteur au dessus du sol moyen\r\n"));
    failure(2, {"report", "plan.net", "--scale", "3", "-o", "x.txt"});
}
