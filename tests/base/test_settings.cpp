#include "base/settings.h"

#include <gtest/gtest.h>

class SettingsTest : public testing::Test
{
protected:
    void SetUp() override { resetsettings(); }
    void TearDown() override { resetsettings(); }
};

TEST_F(SettingsTest, AnAbsentKeyGivesTheDefault)
{
    EXPECT_EQ(getsetting("LastProject", "Default.net"), "Default.net");
    std::int16_t size = 3;
    readsetting("DrawFontSize", std::int16_t{8}, size);
    EXPECT_EQ(size, 8);
    bool bold = false;
    readsetting("DrawFontbold", true, bold);
    EXPECT_TRUE(bold);
    std::string name;
    readsetting("DrawFontName", std::string("MS Sans Serif"), name);
    EXPECT_EQ(name, "MS Sans Serif");
}

TEST_F(SettingsTest, KeysAreOneWhateverTheirCase)
{
    writesetting("DrawFontBold", false);
    bool bold = true;
    readsetting("DrawFontbold", true, bold);
    EXPECT_FALSE(bold);
}

TEST_F(SettingsTest, EveryTypeComesBack)
{
    writesetting("a", "text");
    writesetting("b", std::int32_t{-70000});
    writesetting("c", 0.1F);
    writesetting("d", true);
    std::int32_t integer = 0;
    float single = 0;
    bool flag = false;
    readsetting("b", std::int32_t{0}, integer);
    readsetting("c", 0.0F, single);
    readsetting("d", false, flag);
    EXPECT_EQ(getsetting("a", ""), "text");
    EXPECT_EQ(integer, -70000);
    EXPECT_EQ(single, 0.1F);
    EXPECT_TRUE(flag);
    EXPECT_EQ(getsetting("c", ""), "0.1");
    EXPECT_EQ(getsetting("d", ""), "True");
}

TEST_F(SettingsTest, TextThatDoesNotConvertLeavesTheVariable)
{
    for (const char* text : {"", "abc", "12 km", "1e99", "nan", "+-1", "0x10"}) {
        writesetting("key", text);
        std::int16_t integer = 5;
        float single = 1.5F;
        readsetting("key", std::int16_t{8}, integer);
        readsetting("key", 2.0F, single);
        EXPECT_EQ(integer, 5) << text;
        EXPECT_EQ(single, 1.5F) << text;
    }
    writesetting("key", "peut-être");
    bool flag = true;
    readsetting("key", false, flag);
    EXPECT_TRUE(flag);
}

TEST_F(SettingsTest, ANumberTooLargeForItsTypeDoesNotConvert)
{
    writesetting("key", "40000");
    std::int16_t small = 5;
    std::int32_t large = 5;
    readsetting("key", std::int16_t{8}, small);
    readsetting("key", std::int32_t{8}, large);
    EXPECT_EQ(small, 5);
    EXPECT_EQ(large, 40000);
}

TEST_F(SettingsTest, FractionsRoundToEvenAndNumbersAreTruthValues)
{
    writesetting("key", " 2.5 ");
    std::int16_t integer = 0;
    readsetting("key", std::int16_t{8}, integer);
    EXPECT_EQ(integer, 2);
    writesetting("key", "-1");
    bool flag = false;
    readsetting("key", false, flag);
    EXPECT_TRUE(flag);
}
