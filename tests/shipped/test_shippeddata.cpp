// Every file that the program ships is there and well formed.

#include "base/numbers.h"
#include "base/paths.h"
#include "network/netfields.h"
#include "network/predefined.h"
#include "support/places.h"

#include <QDir>
#include <QImage>
#include <QImageReader>

#include <gtest/gtest.h>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace
{

const std::string shipped = sourcefolder() + "/data/";

struct Town {
    std::string name;
    double lat = 0;
    double lon = 0; ///< degrees, east positive
};

/// Lines of a text file; each must end in CR LF.
std::vector<std::string> crlflines(const std::string& text)
{
    std::vector<std::string> lines;
    std::size_t start = 0;
    for (std::size_t end = text.find("\r\n"); end != std::string::npos;
         end = text.find("\r\n", start)) {
        lines.push_back(text.substr(start, end - start));
        start = end + 2;
    }
    EXPECT_EQ(start, text.size()) << "the last line has no end";
    return lines;
}

std::vector<std::string> splitfields(const std::string& line)
{
    std::vector<std::string> fields(1);
    for (const char c : line)
        if (c == ',')
            fields.emplace_back();
        else if (c != '"')
            fields.back() += c;
    return fields;
}

std::vector<Town> towns()
{
    const auto text = readfile(shipped + "cities.dat");
    EXPECT_TRUE(text.has_value());
    std::vector<Town> result;
    const auto lines = crlflines(text.value_or(""));
    for (std::size_t i = 1; i < lines.size(); ++i) {
        const auto fields = splitfields(lines[i]);
        EXPECT_EQ(fields.size(), 4U) << lines[i];
        if (fields.size() == 4)
            result.push_back({fields[3], leadingnumber(fields[1]), -leadingnumber(fields[2])});
    }
    return result;
}

struct Box {
    double south, north, west, east;
};

std::size_t townsin(const Box& box)
{
    std::size_t count = 0;
    for (const Town& town : towns())
        count += town.lat >= box.south && town.lat <= box.north && town.lon >= box.west &&
                 town.lon <= box.east;
    return count;
}

QStringList iconfiles()
{
    const QDir folder(QString::fromStdString(shipped + "icon"));
    QStringList paths;
    for (const QString& name : folder.entryList({QStringLiteral("*.ico")}, QDir::Files))
        paths << folder.filePath(name);
    return paths;
}

/// Largest alpha in a part of a picture.
int strongest(const QImage& image, const QRect& part)
{
    int most = 0;
    for (int y = part.top(); y <= part.bottom(); ++y)
        for (int x = part.left(); x <= part.right(); ++x)
            most = std::max(most, image.pixelColor(x, y).alpha());
    return most;
}

} // namespace

TEST(ShippedCities, ManyTownsWithPositionsOnTheEarthAndNamesThatAStationHolds)
{
    const auto all = towns();
    EXPECT_GE(all.size(), 400U);
    for (const Town& town : all) {
        EXPECT_LE(std::abs(town.lat), 90) << town.name;
        EXPECT_LE(std::abs(town.lon), 180) << town.name;
        EXPECT_FALSE(town.name.empty());
        EXPECT_LE(town.name.size(), 20U) << town.name; // Windows-1252: a byte a character
    }
}

TEST(ShippedCities, ColoursAreHexadecimal)
{
    const auto lines = crlflines(readfile(shipped + "cities.dat").value_or(""));
    ASSERT_GT(lines.size(), 1U);
    for (std::size_t i = 1; i < lines.size(); ++i) {
        const std::string colour = splitfields(lines[i])[0];
        EXPECT_FALSE(colour.empty());
        EXPECT_EQ(colour.find_first_not_of("0123456789ABCDEF"), std::string::npos) << lines[i];
    }
}

TEST(ShippedCities, EveryContinentIsThere)
{
    EXPECT_GE(townsin({36, 71, -25, 40}), 100U) << "Europe";
    EXPECT_GE(townsin({-35, 35, -18, 42}), 100U) << "Africa";
    EXPECT_GE(townsin({5, 75, 60, 145}), 100U) << "Asia";
    EXPECT_GE(townsin({15, 75, -168, -52}), 100U) << "North America";
    EXPECT_GE(townsin({-56, 13, -82, -34}), 100U) << "South America";
    EXPECT_GE(townsin({-48, -10, 112, 180}), 20U) << "Oceania";
}

TEST(ShippedCities, WellKnownPlacesStandWhereTheyAre)
{
    const std::map<std::string, std::pair<double, double>> known{
        {"Paris", {48.8566, 2.3522}},     {"Londres", {51.5074, -0.1278}},
        {"Tokyo", {35.6897, 139.6922}},   {"Nairobi", {-1.2864, 36.8172}},
        {"New York", {40.7128, -74.006}}, {"Buenos Aires", {-34.6037, -58.3816}},
        {"Sydney", {-33.8688, 151.2093}},
    };
    std::set<std::string> found;
    for (const Town& town : towns()) {
        const auto place = known.find(town.name);
        if (place != known.end() && std::abs(town.lat - place->second.first) < 0.1 &&
            std::abs(town.lon - place->second.second) < 0.1)
            found.insert(town.name);
    }
    EXPECT_EQ(found.size(), known.size());
}

TEST(ShippedSystems, AtLeastTwentyWithANameThatARecordHoldsOnce)
{
    const auto text = readfile(shipped + "radiosys.dat").value_or("");
    EXPECT_EQ(crlflines(text).size() % 6, 0U);
    const auto names = predefinednames(asbytes(text));
    EXPECT_GE(names.size(), 20U);
    std::set<std::string> seen;
    for (const std::string& name : names) {
        EXPECT_EQ(FixedText<30>(name).text(), name);
        EXPECT_TRUE(seen.insert(name).second) << name;
    }
}

TEST(ShippedSystems, EveryNumberLiesWithinTheBoundsOfItsField)
{
    const auto text = readfile(shipped + "radiosys.dat").value_or("");
    const auto inbounds = [](const Bounds& limits, const std::string& number) {
        return !number.empty() && checkfield(limits.low, limits.high, number).inbounds;
    };
    for (const std::string& name : predefinednames(asbytes(text))) {
        const auto system = findpredefined(asbytes(text), name);
        ASSERT_TRUE(system);
        EXPECT_TRUE(inbounds(bounds::power, system->power)) << name;
        EXPECT_TRUE(inbounds(bounds::threshold, system->threshold)) << name;
        EXPECT_TRUE(inbounds(bounds::lineloss, system->lineloss)) << name;
        EXPECT_TRUE(inbounds(bounds::gain, system->gain)) << name;
        EXPECT_TRUE(inbounds(bounds::antennaheight, system->height)) << name;
    }
}

TEST(ShippedIcons, EachLoadsAtThirtyTwoPixelsAndHoldsLargerSizes)
{
    const QStringList paths = iconfiles();
    EXPECT_GE(paths.size(), 24);
    for (const QString& path : paths) {
        const QImage first(path);
        EXPECT_EQ(first.size(), QSize(32, 32)) << path.toStdString();
        EXPECT_TRUE(first.hasAlphaChannel()) << path.toStdString();
        QImageReader reader(path);
        EXPECT_EQ(reader.imageCount(), 3) << path.toStdString();
        for (const int side : {32, 48, 64}) {
            EXPECT_EQ(reader.read().size(), QSize(side, side)) << path.toStdString();
            reader.jumpToNextImage();
        }
    }
}

TEST(ShippedIcons, EachIsAPinWhosePointTouchesTheMiddleOfTheLowerEdge)
{
    for (const QString& path : iconfiles()) {
        const QImage icon(path);
        EXPECT_GT(strongest(icon, QRect(14, 30, 4, 2)), 200) << path.toStdString();
        EXPECT_EQ(strongest(icon, QRect(0, 31, 8, 1)), 0) << path.toStdString();
        EXPECT_EQ(strongest(icon, QRect(24, 31, 8, 1)), 0) << path.toStdString();
    }
}

TEST(ShippedIcons, NoTwoAreAlike)
{
    std::vector<QImage> seen;
    for (const QString& path : iconfiles()) {
        const QImage icon(path);
        for (const QImage& other : seen)
            EXPECT_NE(icon, other) << path.toStdString();
        seen.push_back(icon);
    }
}

TEST(ShippedWorld, IsTheWholeEarthInPlateCarree)
{
    const QImage world(QString::fromStdString(shipped + "world/world.jpg"));
    EXPECT_GE(world.width(), 1440);
    EXPECT_EQ(world.width(), 2 * world.height());
}

TEST(ShippedWorld, LandAndSeaLieWhereTheEarthHasThem)
{
    const QImage world(QString::fromStdString(shipped + "world/world.jpg"));
    ASSERT_FALSE(world.isNull());
    const auto issea = [&world](double lon, double lat) {
        const auto x = qRound((lon + 180) / 360 * (world.width() - 1));
        const auto y = qRound((90 - lat) / 180 * (world.height() - 1));
        const QColor colour = world.pixelColor(x, y);
        return colour.blue() > colour.red() + 25;
    };
    // Either side of straits and coasts, a degree or so apart.
    const std::vector<std::pair<double, double>> sea{
        {-5.6, 36.0}, {2.5, 39.0}, {-9.9, 38.7},   {106, 5},      {-75, -20},
        {-179, 0},    {179, 0},    {0, 89},        {40, 43},      {26.0, 34.5},
        {-50, 10},    {18, -35.2}, {145.5, -39.7}, {-65.5, 42.5}, {172.5, -45.5}};
    const std::vector<std::pair<double, double>> land{
        {-5.5, 37.0}, {3.0, 45.0},  {-8.0, 39.5}, {102, 4},      {-69, -20},   {66, 67},
        {178, 67},    {-179, 67},   {0, -85},     {34, 39},      {14.2, 37.4}, {-60, 0},
        {20, -33.5},  {146.5, -42}, {-66.5, 46},  {170.5, -44.5}};
    for (const auto& [lon, lat] : sea)
        EXPECT_TRUE(issea(lon, lat)) << lon << ' ' << lat;
    for (const auto& [lon, lat] : land)
        EXPECT_FALSE(issea(lon, lat)) << lon << ' ' << lat;
}
