#include "base/paths.h"
#include "mapsamples.h"
#include "terrain/mapfile.h"

#include <cmath>
#include <gtest/gtest.h>

static MapStatus parse(const std::string& bytes, MapGrid& map)
{
    return parsemap(asbytes(bytes), map);
}

/// The whole file of a map, as it is written.
static std::string filebytes(const MapGrid& map)
{
    std::string bytes = mapheader(map);
    for (const std::int16_t sample : map.samples)
        bytes += rawbytes(sample);
    return bytes;
}

TEST(MapFile, TheCurrentFormatIsReadFieldByField)
{
    MapGrid map;
    ASSERT_EQ(parse(currentmap(), map), MapStatus::ok);
    EXPECT_EQ(map.width, 3);
    EXPECT_EQ(map.height, 2);
    EXPECT_EQ(map.samples, (std::vector<std::int16_t>{100, 101, 102, 103, 104, 105}));
    EXPECT_EQ(map.at(2, 1), 105);
    const MapRecord& record = map.record;
    EXPECT_EQ(record.maplon0, -84.25F);
    EXPECT_EQ(record.maplat0, 36.5F);
    EXPECT_EQ(record.mapsize, 31.5F);
    EXPECT_EQ(record.Mapmode, 3);
    EXPECT_EQ(record.con, 41);
    EXPECT_EQ(record.bri, 42);
    EXPECT_EQ(record.minx, 43);
    EXPECT_EQ(record.maxx, 44);
    EXPECT_EQ(record.light, 45);
    EXPECT_EQ(record.c1, 1);
    EXPECT_EQ(record.c2, 2);
    EXPECT_EQ(record.hmin, 236);
    EXPECT_EQ(record.hmax, 1076);
    EXPECT_EQ(record.hmoy, 401.5F);
    EXPECT_EQ(record.sources, 5);
    EXPECT_EQ(record.sourceletter, 'T');
    EXPECT_EQ(map.maplon, (std::array<float, 4>{-85, -83, -83, -85}));
    EXPECT_EQ(map.maplat, (std::array<float, 4>{37, 37, 36, 36}));
    EXPECT_EQ(map.cities, -1);
}

TEST(MapFile, IsWrittenByteForByteAsItWasRead)
{
    MapGrid map;
    ASSERT_EQ(parse(currentmap(), map), MapStatus::ok);
    EXPECT_EQ(filebytes(map), currentmap());
    EXPECT_EQ(mapheader(map).size(), 96U);
}

TEST(MapFile, EverySingleKeepsItsBits)
{
    std::string bytes = currentmap();
    for (const std::size_t offset : {12, 16, 20, 26, 62, 90}) // a NaN with a payload of its own
        bytes.replace(offset, 4, rawbytes(0x7FA12345U + static_cast<unsigned>(offset)));
    MapGrid map;
    ASSERT_EQ(parse(bytes, map), MapStatus::ok);
    EXPECT_EQ(filebytes(map), bytes);
}

TEST(MapFile, BytesBehindTheSamplesDontMatter)
{
    MapGrid map;
    EXPECT_EQ(parse(currentmap() + "more", map), MapStatus::ok);
    EXPECT_EQ(map.samples.size(), 6U);
}

TEST(MapFile, AMapOfOneSampleComesBack)
{
    MapGrid map;
    allocatemap(map, 1, 1);
    map.at(0, 0) = -5;
    MapGrid back;
    ASSERT_EQ(parse(filebytes(map), back), MapStatus::ok);
    EXPECT_EQ(back.samples, map.samples);
    EXPECT_EQ(filebytes(back), filebytes(map));
}

TEST(MapFile, AFileThatEndsBeforeItsWidthAndHeightChangesNothing)
{
    for (std::size_t size = 4; size < 12; ++size) {
        MapGrid map;
        allocatemap(map, 2, 2);
        map.samples.assign(4, 7);
        EXPECT_EQ(parse(currentmap().substr(0, size), map), MapStatus::truncated) << size;
        EXPECT_EQ(map.samples, std::vector<std::int16_t>(4, 7));
        EXPECT_EQ(map.record, MapRecord());
    }
}

TEST(MapFile, AFileThatEndsEarlyHasItsOwnTableAndTheHeightsThatItHolds)
{
    const std::string whole = currentmap();
    for (std::size_t size = 12; size < whole.size(); ++size) {
        MapGrid map;
        allocatemap(map, 2, 2);
        map.samples.assign(4, 7); // of the old map: none of them may stay
        ASSERT_EQ(parse(whole.substr(0, size), map), MapStatus::incomplete) << size;
        EXPECT_EQ(map.width, 3);
        EXPECT_EQ(map.height, 2);
        ASSERT_EQ(map.samples.size(), 6U);
        for (std::size_t i = 0; i < 6; ++i)
            EXPECT_EQ(map.samples[i], size >= 98 + 2 * i ? 100 + static_cast<int>(i) : 0) << size;
        EXPECT_EQ(map.record.maplon0, size < 62 ? -73 : -84.25F);
        if (size >= 96) {
            EXPECT_EQ(map.maplon[0], -85);
        } else { // the frame of the old record over the new table
            EXPECT_NEAR((map.maplat[0] + map.maplat[2]) / 2, 45, 1e-4F);
        }
    }
}

TEST(MapFile, ItsHeaderTellsHowManyBytesAreRead)
{
    EXPECT_EQ(mapbytes(asbytes(currentmap())), currentmap().size());
    std::string header = currentmap().substr(0, mapheadersize);
    header.replace(4, 8, rawbytes(100000) + rawbytes(100000));
    EXPECT_EQ(mapbytes(asbytes(header)), 96 + 20000000000U);
    header.replace(4, 4, rawbytes(0));
    EXPECT_EQ(mapbytes(asbytes(header)), 0U);
    EXPECT_GE(mapbytes(asbytes(oldermap(10))), oldermap(10).size());
}

TEST(MapFile, ClaimsBeyondTheFilesSizeAllocateNothing)
{
    struct {
        int width;
        int height;
        MapStatus status;
    } const claims[] = {
        {0x7FFFFFFF, 1, MapStatus::truncated},
        {0x7FFFFFFF, 0x7FFFFFFF, MapStatus::truncated},
        {46341, 46341, MapStatus::truncated},
        {65536, 65536, MapStatus::truncated},
        {0, 5, MapStatus::badformat},
        {5, 0, MapStatus::badformat},
        {-1, -6, MapStatus::badformat},
        {-3, 2, MapStatus::badformat},
        {-0x7FFFFFFF - 1, -0x7FFFFFFF - 1, MapStatus::badformat},
    };
    for (const auto& claim : claims) {
        std::string bytes = currentmap();
        bytes.replace(4, 8, rawbytes(claim.width) + rawbytes(claim.height));
        MapGrid map;
        EXPECT_EQ(parse(bytes, map), claim.status) << claim.width << " x " << claim.height;
        EXPECT_EQ(map.samples.capacity(), 0U);
        EXPECT_EQ(map.width, 0);
    }
}

TEST(OlderMap, IsToldByItsMissingSignature)
{
    EXPECT_FALSE(isoldermap(asbytes(currentmap())));
    EXPECT_TRUE(isoldermap(asbytes(oldermap(10))));
    EXPECT_TRUE(isoldermap({}));
}

TEST(OlderMap, CountsWestAsPositive)
{
    const std::pair<float, float> longitudes[] = {
        {100, -100}, {-170, 170}, {-180, -180}, {180, -180}, {84.25F, -84.25F}, {-180.5F, -179.5F}};
    for (const auto& [stored, expected] : longitudes) {
        MapGrid map;
        ASSERT_EQ(parse(oldermap(stored), map), MapStatus::ok);
        EXPECT_EQ(map.record.maplon0, expected);
        EXPECT_NEAR((map.maplon[0] + map.maplon[1]) / 2, expected, 1e-4F);
    }
}

TEST(OlderMap, HasItsSourceLetterAndSize)
{
    MapGrid map;
    map.cities = 7;
    ASSERT_EQ(parse(oldermap(10), map), MapStatus::ok);
    EXPECT_EQ(map.width, 513);
    EXPECT_EQ(map.height, 513);
    EXPECT_EQ(map.record.sourceletter, 'D');
    EXPECT_EQ(map.record.mapsize, 31.5F);
    EXPECT_EQ(map.cities, 7); // its file says nothing of them
    ASSERT_EQ(parse(oldermap(10, 1, ""), map), MapStatus::ok);
    EXPECT_EQ(map.record.sourceletter, ' ');
}

TEST(OlderMap, HeightsRoundHalfToEvenAndStayWithinTheirBits)
{
    const std::pair<float, int> heights[] = {
        {0.5F, 0},         {1.5F, 2},        {2.5F, 2},          {-0.5F, 0},
        {-1.5F, -2},       {3.2F, 3},        {40000, 32767},     {-40000, -32768},
        {1e30F, 32767},    {-1e30F, -32768}, {HUGE_VALF, 32767}, {-HUGE_VALF, -32768},
        {std::nanf(""), 0}};
    std::string bytes = oldermap(10);
    std::size_t cell = 0;
    for (const auto& [height, rounded] : heights)
        bytes.replace(olderheights + 4 * cell++, 4, rawbytes(height));
    MapGrid map;
    ASSERT_EQ(parse(bytes, map), MapStatus::ok);
    cell = 0;
    for (const auto& [height, rounded] : heights)
        EXPECT_EQ(map.samples[cell++], rounded) << height;
}

TEST(OlderMap, RunsEastwardThenNorthward)
{
    std::string bytes = oldermap(10, 0);
    bytes.replace(olderheights + std::size_t{4} * (513 * 2 + 5), 4, rawbytes(77.0F));
    MapGrid map;
    ASSERT_EQ(parse(bytes, map), MapStatus::ok);
    EXPECT_EQ(map.at(5, 2), 77);
}

TEST(OlderMap, ALongitudeOutOfRangeIsNoMapAndLeavesTheRecord)
{
    for (const float lon : {181.0F, -181.0F, 1e30F, std::nanf("")}) {
        MapGrid map;
        EXPECT_EQ(parse(oldermap(lon), map), MapStatus::badformat) << lon;
        EXPECT_EQ(map.record, MapRecord());
        EXPECT_TRUE(map.samples.empty());
    }
}

TEST(OlderMap, ATruncatedFileAllocatesNothing)
{
    const std::string whole = oldermap(10);
    for (const std::size_t size : {std::size_t{0}, std::size_t{3}, std::size_t{49}, std::size_t{50},
                                   std::size_t{71}, olderheights, whole.size() - 1}) {
        MapGrid map;
        EXPECT_EQ(parse(whole.substr(0, size), map), MapStatus::truncated) << size;
        EXPECT_EQ(map.samples.capacity(), 0U) << size;
        EXPECT_EQ(map.record, MapRecord()) << size;
    }
}

TEST(OlderMap, TheConversionGoesColumnByColumnAndCanBeStopped)
{
    const std::string bytes = oldermap(10, 9);
    MapGrid map;
    int columns = 0;
    const auto stopat = [&columns](int column) {
        EXPECT_EQ(column, columns++);
        return column < 99;
    };
    EXPECT_EQ(parsemap(asbytes(bytes), map, stopat), MapStatus::stopped);
    EXPECT_EQ(columns, 100);
    EXPECT_EQ(map.at(99, 512), 9); // half converted
    EXPECT_EQ(map.at(100, 0), 0);
}
