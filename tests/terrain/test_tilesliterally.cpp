// Which tiles a frame calls for, and which cell a position falls in, against the rules read
// literally: frames by lot all over the earth, many of which end at whole degrees or a hair beside
// them, beyond the poles, and on both sides of the 180th meridian.

#include "base/hooks.h"
#include "base/numbers.h"
#include "base/session.h"
#include "base/settings.h"
#include "terrain/build.h"
#include "terrain/extraction.h"
#include "terrain/mapgrid.h"

#include <cmath>
#include <fmt/format.h>
#include <gmock/gmock.h>
#include <random>
#include <string>
#include <vector>

using testing::ElementsAreArray;

namespace
{
class TilesLiterally : public testing::Test
{
protected:
    void SetUp() override
    {
        resethooks();
        resetsettings();
        session = Session();
        session.drvpath.fill("/nowhere");
        ignoremissing = false;
        hooks.askuser = [this](const Question& question) {
            asked.push_back(question.text.substr(question.text.find('\n') + 1 +
                                                 std::string("/nowhere/").size()));
            return answer;
        };
    }
    void TearDown() override { resethooks(); }

    /// A frame by lot; most end near a whole degree on one of their sides.
    void placebylot(std::mt19937& random)
    {
        const auto below = [&random](int count) {
            return static_cast<int>(random() % static_cast<unsigned>(count));
        };
        const float offsets[] = {0, -0.02F, -0.009F, -0.004F, 0.001F, 0.004F, 0.009F, 0.011F, 0.3F};
        mapgrid = MapGrid();
        mapgrid.record.mapsize = static_cast<float>(1 + below(400));
        mapgrid.record.maplon0 = static_cast<float>(below(361) - 180);
        mapgrid.record.maplat0 = static_cast<float>(below(171) - 85);
        allocatemap(mapgrid, 2 + below(40), 2 + below(40));
        mapframe(mapgrid);
        const float eastedge = mapgrid.maplon[2];
        const float northedge = mapgrid.maplat[0];
        mapgrid.record.maplon0 += std::round(eastedge) - eastedge + offsets[below(9)];
        mapgrid.record.maplat0 += std::round(northedge) - northedge + offsets[below(9)];
        mapframe(mapgrid);
    }

    std::vector<std::string> asked;
    Answer answer = Answer::ignore;
};

double west()
{
    return double{mapgrid.maplon[0]};
}
double east()
{
    return double{mapgrid.maplon[2]};
}
double north()
{
    return double{mapgrid.maplat[0]};
}
double south()
{
    return double{mapgrid.maplat[2]};
}

std::vector<std::string> terraintiles()
{
    std::vector<std::string> names;
    for (double lon = std::floor(west()); lon <= std::floor(east() + 0.01); lon += 1)
        for (double lat = std::max(-90.0, std::floor(south()));
             lat <= std::min(89.0, std::floor(north() + 0.01)); lat += 1) {
            int w = static_cast<int>(-lon - 1);
            if (w > 179)
                w -= 360;
            if (w < -180)
                w += 360;
            const int a = static_cast<int>(std::abs(lat));
            names.push_back(fmt::format("terrain/m{0:03}/{1}{0:03}{2}{3:02}.sd_", std::abs(w),
                                        w >= 0 ? "w" : "e", lat >= 0 ? "n" : "s", a));
        }
    return names;
}

std::vector<std::string> dtedcells()
{
    std::vector<std::string> names;
    for (double lon = std::floor(west()); lon <= std::floor(east()); lon += 1)
        for (double lat = std::max(-90.0, std::floor(south()));
             lat <= std::min(89.0, std::floor(north())); lat += 1) {
            double l = lon;
            while (l < -180)
                l += 360;
            while (l > 179)
                l -= 360;
            names.push_back(fmt::format("dted/{}{:03}/{}{:02}.dt0", l < 0 ? "w" : "e",
                                        static_cast<int>(std::abs(l)), lat >= 0 ? "n" : "s",
                                        static_cast<int>(std::abs(lat))));
        }
    return names;
}

std::vector<std::string> gtopotiles()
{
    std::vector<std::string> names;
    for (double top = 90 - std::floor((90 - north()) / 50) * 50; top > std::max(south(), -90.0);
         top -= 50) {
        const double width = top > -60 ? 40 : 60;
        for (double left = std::floor((west() + 180) / width) * width - 180; left < east();
             left += width) {
            double l = left;
            while (l < -180)
                l += 360;
            while (l > 179)
                l -= 360;
            const std::string name =
                fmt::format("{}{:03}{}{:02}", l <= 0 ? "w" : "e", static_cast<int>(std::abs(l)),
                            top < 0 ? "s" : "n", static_cast<int>(std::abs(top)));
            names.push_back(name + "/" + name + ".dem");
        }
    }
    return names;
}
} // namespace

TEST_F(TilesLiterally, EveryPassCallsForTheTilesOfItsRules)
{
    std::mt19937 random(5);
    for (int i = 0; i < 100; ++i) {
        placebylot(random);
        const std::string where =
            fmt::format("frame {} to {} E, {} to {} N", west(), east(), south(), north());
        asked.clear();
        EXPECT_TRUE(getTERRAIN());
        EXPECT_THAT(asked, ElementsAreArray(terraintiles())) << where;
        asked.clear();
        EXPECT_TRUE(getGTOPO30());
        EXPECT_THAT(asked, ElementsAreArray(gtopotiles())) << where;
        asked.clear();
        EXPECT_TRUE(getDTED());
        EXPECT_THAT(asked, ElementsAreArray(dtedcells())) << where;
    }
}

TEST_F(TilesLiterally, ABuildStoppedInAnyPassRunsNoFurtherOne)
{
    const auto built = [this](unsigned sources) {
        MapOrder order;
        order.record.maplon0 = 10.5F;
        order.record.maplat0 = 45.5F;
        order.record.mapsize = 20;
        order.record.sources = static_cast<std::uint8_t>(sources);
        order.width = order.height = 10;
        asked.clear();
        answer = Answer::abort;
        bool drawn = false;
        hooks.drawmap = [&drawn](const std::string&) { drawn = true; };
        EXPECT_FALSE(buildmap(order));
        EXPECT_FALSE(drawn);
        return asked.size();
    };
    EXPECT_EQ(built(source::terrain | source::gtopo30 | source::dted), 1U);
    EXPECT_EQ(built(source::gtopo30 | source::dted), 1U);
    EXPECT_EQ(built(source::dted), 1U);
}

TEST(LookupLiterally, PositionsOnBothSidesOfThe180thMeridianFallInTheCellOfTheRules)
{
    std::mt19937 random(9);
    std::uniform_real_distribution<float> share(-0.05F, 1.05F);
    int inside = 0;
    for (int i = 0; i < 20000; ++i) {
        MapGrid map;
        allocatemap(map, 41, 31);
        map.record.maplon0 = static_cast<float>(i % 2 == 0 ? 180 : -180) + share(random) * 6 - 3;
        map.record.maplat0 = share(random) * 120 - 60;
        map.record.mapsize = 1 + share(random) * 2000;
        mapframe(map);
        const float lowlon = map.maplon[0];
        const float highlon = map.maplon[2];
        float lon = lowlon + share(random) * (highlon - lowlon);
        const float lat = map.maplat[2] + share(random) * (map.maplat[0] - map.maplat[2]);
        if (lon > 180)
            lon -= 360;
        if (lon < -180)
            lon += 360;
        float shown = lon;
        if (lowlon < -180 && lon > 0)
            shown = lon - 360;
        if (highlon > 180 && lon < 0)
            shown = lon + 360;
        const double column = std::nearbyint((double{shown} - double{lowlon}) /
                                             (double{highlon} - double{lowlon}) * 40);
        const double row = std::nearbyint((double{lat} - double{map.maplat[2]}) /
                                          (double{map.maplat[0]} - double{map.maplat[2]}) * 30);
        const bool within = column >= 0 && column <= 40 && row >= 0 && row <= 30;
        float x = -1;
        float y = -1;
        float height = -1;
        EXPECT_EQ(maplookup(map, lon, lat, x, y, height), within) << lon << " E " << lat << " N";
        if (within) {
            EXPECT_EQ(double{x}, column);
            EXPECT_EQ(double{y}, row);
            ++inside;
        }
    }
    EXPECT_GT(inside, 10000);
}
