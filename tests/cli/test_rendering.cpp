#include "base/paths.h"
#include "cli/handmade.h"
#include "cli/process.h"
#include "pictures/paint/picturefile.h"

#include <QImage>

#include <gtest/gtest.h>
#include <string>

class Rendering : public CliTest
{
protected:
    void SetUp() override
    {
        CliTest::SetUp();
        write("plan.net", handmade::network());
        write("plain.map", handmade::map());
    }

    std::string path(const std::string& name) const { return (folder / name).string(); }

    QImage image(const std::string& name) const { return readraster(path(name)); }

    /// Draws the map with these options and returns the picture.
    QImage rendered(std::vector<std::string> options) const
    {
        std::vector<std::string> arguments{"render", "plain.map", "-o", "a.bmp"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        EXPECT_EQ(success(arguments).out, "");
        return image("a.bmp");
    }
};

TEST_F(Rendering, DrawsAMapIntoABitmapOf24BitsWithItsSidecar)
{
    EXPECT_EQ(rendered({}).size(), QSize(handmade::width, handmade::height));
    const auto bytes = readfile(path("a.bmp"));
    ASSERT_TRUE(bytes);
    EXPECT_TRUE(bytes->starts_with("BM"));
    EXPECT_EQ((*bytes)[28], 24);
    const auto values = success({"info", "a.bmp"}).values();
    EXPECT_EQ(values.at("kind"), "picture");
    EXPECT_EQ(values.at("type"), "1");
    EXPECT_EQ(values.at("width"), "41");
    EXPECT_EQ(values.at("height"), "31");
    EXPECT_EQ(values.at("corner1"), "8,44.46875");
    EXPECT_EQ(values.at("corner3"), "8.625,44");
    EXPECT_TRUE(values.at("source").ends_with("plain.map"));
}

TEST_F(Rendering, OptionsReplaceTheMapsValuesAndReachTheSidecar)
{
    rendered({"--mode", "2", "--contrast", "40.5", "--brightness", "60", "--floor", "-5",
              "--ceiling", "300", "--light", "90", "--contours", "10,500"});
    Picture picture;
    readcompanion(path("a.bmp"), picture);
    EXPECT_EQ(picture.Mapmode, 2);
    EXPECT_EQ(picture.con, 40.5F);
    EXPECT_EQ(picture.bri, 60);
    EXPECT_EQ(picture.minx, -5);
    EXPECT_EQ(picture.maxx, 300);
    EXPECT_EQ(picture.light, 90);
    EXPECT_EQ(picture.c1, 1);
    EXPECT_EQ(picture.c2, 2);
}

TEST_F(Rendering, EveryModeGivesAnotherPicture)
{
    std::vector<QImage> pictures;
    for (int mode = 0; mode <= 5; ++mode) {
        const QImage picture =
            rendered({"--mode", std::to_string(mode), "--floor", "0", "--ceiling", "200"});
        for (const QImage& other : pictures)
            EXPECT_NE(picture, other) << mode;
        pictures.push_back(picture);
    }
}

TEST_F(Rendering, ThreadsDontChangeThePicture)
{
    EXPECT_EQ(rendered({"--threads", "1"}), rendered({"--threads", "3"}));
}

TEST_F(Rendering, DrawsStationsAndLinksOverTheMap)
{
    const QImage map = rendered({});
    success({"draw", "plan.net", "-o", "b.bmp"});
    const QImage net = image("b.bmp");
    ASSERT_EQ(net.size(), map.size());
    EXPECT_NE(net, map);
    EXPECT_EQ(net.copy(0, 0, 3, 31), map.copy(0, 0, 3, 31)); // west of all stations
}

TEST_F(Rendering, SaysWhatWentWrongAndLeavesNothingBehind)
{
    failure(2, {"render", "plain.map"});
    failure(2, {"render", "plain.map", "-o", "a.jpg"});
    failure(2, {"render", "plain.map", "-o", "a.bmp", "--mode", "6"});
    failure(2, {"render", "plain.map", "-o", "a.bmp", "--contrast", "101"});
    failure(2, {"render", "plain.map", "-o", "a.bmp", "--contours", "20"});
    failure(1, {"render", "none.map", "-o", "a.bmp"});
    failure(1, {"draw", "none.net", "-o", "a.bmp"});
    failure(1, {"render", "plain.map", "-o", "none/a.bmp"});
    failure(1, {"info", "none.bmp"});
    EXPECT_FALSE(findfile(path("a.bmp")));
    EXPECT_FALSE(findfile(path("a.dat")));
    write("text.bmp", "no picture");
    EXPECT_NE(failure(1, {"info", "text.bmp"}).find("picture"), std::string::npos);
}
