#include "base/bytes.h"
#include "base/paths.h"

#include <gtest/gtest.h>

TEST(Bytes, WhatIsWrittenIsReadBackInOrder)
{
    ByteWriter writer;
    writer.write(std::int16_t{-2});
    writer.write(5000.0F);
    writer.writestring("carte.map");
    writer.writestring("");
    EXPECT_EQ(writer.data().substr(0, 6), std::string("\xFE\xFF\x00\x40\x9C\x45", 6));

    ByteReader reader(asbytes(writer.data()));
    std::int16_t integer = 0;
    float single = 0;
    std::string name;
    std::string empty = "before";
    EXPECT_TRUE(reader.read(integer));
    EXPECT_TRUE(reader.read(single));
    EXPECT_TRUE(reader.readstring(name));
    EXPECT_TRUE(reader.readstring(empty));
    EXPECT_EQ(integer, -2);
    EXPECT_EQ(single, 5000.0F);
    EXPECT_EQ(name, "carte.map");
    EXPECT_EQ(empty, "");
    EXPECT_EQ(reader.left(), 0U);
    EXPECT_FALSE(reader.failed());
}

TEST(Bytes, AReadBeyondTheEndLeavesItsTargetAndFailsAllLaterReads)
{
    ByteReader reader(asbytes("abc"));
    std::int32_t integer = 77;
    EXPECT_FALSE(reader.read(integer));
    EXPECT_EQ(integer, 77);
    char letter = 'z';
    EXPECT_FALSE(reader.read(letter));
    EXPECT_EQ(letter, 'z');
    EXPECT_EQ(reader.position(), 0U);
    EXPECT_TRUE(reader.failed());
}

TEST(Bytes, AStringLongerThanTheFileFails)
{
    using namespace std::string_view_literals;
    for (const std::string_view bytes : {"\x05\x00"
                                         "abc"sv,
                                         "\xFF\xFF"
                                         "abc"sv,
                                         "\x01"sv, ""sv}) {
        ByteReader reader(asbytes(bytes));
        std::string text = "before";
        EXPECT_FALSE(reader.readstring(text));
        EXPECT_EQ(text, "before");
    }
}

TEST(Bytes, SkippingStopsAtTheEnd)
{
    ByteReader reader(asbytes("abcd"));
    EXPECT_TRUE(reader.skip(3));
    EXPECT_EQ(reader.left(), 1U);
    EXPECT_FALSE(reader.skip(2));
    EXPECT_FALSE(reader.skip(0));
}

TEST(Bytes, AnEmptySourceGivesNothingAndTakesEmptyBlocks)
{
    ByteReader reader({});
    EXPECT_TRUE(reader.readblock(nullptr, 0));
    char letter = 'z';
    EXPECT_FALSE(reader.read(letter));
}

TEST(Bytes, ALongStringIsCutAtTheLargestLength)
{
    ByteWriter writer;
    writer.writestring(std::string(40000, 'a'));
    EXPECT_EQ(writer.data().size(), 2U + 32767U);
    EXPECT_EQ(writer.data().substr(0, 2), "\xFF\x7F");
}
