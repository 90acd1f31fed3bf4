#include "base/textcodec.h"

#include <gtest/gtest.h>
#include <set>

TEST(TextCodec, EveryByteHasItsOwnCharacterAndComesBack)
{
    std::set<std::string> characters;
    for (int code = 0; code < 256; ++code) {
        const std::string byte(1, static_cast<char>(code));
        characters.insert(fromansi(byte));
        EXPECT_EQ(toansi(fromansi(byte)), byte) << code;
    }
    EXPECT_EQ(characters.size(), 256U);
}

TEST(TextCodec, KnowsTheCodePage)
{
    EXPECT_EQ(fromansi("R\xE9seau \x80 \x9C \x9F"), "Réseau € œ Ÿ");
    EXPECT_EQ(toansi("Réseau € œ Ÿ"), "R\xE9seau \x80 \x9C \x9F");
}

TEST(TextCodec, ACharacterThatTheCodePageLacksBecomesAQuestionMark)
{
    EXPECT_EQ(toansi("a日b"), "a?b");
    EXPECT_EQ(toansi("\U0001F5FA!"), "?!");
    EXPECT_EQ(toansi("\xC2\x80"), "?"); // the number of the euro's byte, not its character
}

TEST(TextCodec, MalformedTextGivesAQuestionMarkForEachByte)
{
    EXPECT_EQ(toansi("\xC3"), "?");
    EXPECT_EQ(toansi("a\xFF\xE9z"), "a??z");
    EXPECT_EQ(toansi("\xC0\x80"), "??");
}

TEST(FixedText, IsBlankPaddedAndCutAtItsWidth)
{
    const FixedText<6> name("Été");
    EXPECT_EQ(std::string(name.bytes.data(), 6), "\xC9t\xE9   ");
    EXPECT_EQ(name.text(), "Été");
    EXPECT_EQ(FixedText<4>("Montagne").text(), "Mont");
    EXPECT_EQ(FixedText<4>().text(), "");
}

TEST(FixedText, IsShownWithoutBlanksAndZeroBytesAroundIt)
{
    FixedText<6> name;
    name.bytes = {' ', 'a', ' ', 'b', '\0', '\0'};
    EXPECT_EQ(name.text(), "a b");
}
