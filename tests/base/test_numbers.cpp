#include "base/numbers.h"

#include <charconv>
#include <cmath>
#include <cstring>
#include <gtest/gtest.h>
#include <limits>
#include <random>

TEST(FormatNumber, PutsDigitsIntoThePatternsZeros)
{
    EXPECT_EQ(formatnumber("0.0 km", 12.34), "12.3 km");
    EXPECT_EQ(formatnumber("000.00000", 5.5), "005.50000");
    EXPECT_EQ(formatnumber("00'", 7), "07'");
    EXPECT_EQ(formatnumber("000°", 73), "073°");
    EXPECT_EQ(formatnumber("0", 1234), "1234");
    EXPECT_EQ(formatnumber("(0 mils)", 17.6), "(18 mils)");
    EXPECT_EQ(formatnumber("0000000", 5039590), "5039590");
    EXPECT_EQ(formatnumber(".00", 0.5), ".50");
}

TEST(FormatNumber, ATieGoesToEvenOfTheExactBinaryValue)
{
    EXPECT_EQ(formatnumber("0.0", 0.25), "0.2");
    EXPECT_EQ(formatnumber("0.0", 0.75), "0.8");
    EXPECT_EQ(formatnumber("0", 0.5), "0");
    EXPECT_EQ(formatnumber("0", 1.5), "2");
    EXPECT_EQ(formatnumber("0", 2.5), "2");
    EXPECT_EQ(formatnumber("0.0", 0.35), "0.3");    // 0.34999...
    EXPECT_EQ(formatnumber("0.0", 0.15), "0.1");    // 0.1499999...
    EXPECT_EQ(formatnumber("0.00", 1.005), "1.00"); // 1.00499...
}

TEST(FormatNumber, TheMinusStandsInFrontOfTheDigits)
{
    EXPECT_EQ(formatnumber("000.0", -5.25), "-005.2");
    EXPECT_EQ(formatnumber("0.0 dB", -0.04), "-0.0 dB");
    EXPECT_EQ(formatnumber("0.0", -0.0), "0.0");
}

TEST(FormatNumber, KeepsAllDigitsOfLargeNumbersAndNamesWhatIsNone)
{
    EXPECT_EQ(formatnumber("0.0", 1e15), "1000000000000000.0");
    EXPECT_EQ(formatnumber("0.0 dB", std::nan("")), "nan dB");
    EXPECT_EQ(formatnumber("0.0", -INFINITY), "-inf");
    EXPECT_EQ(formatnumber("0", std::numeric_limits<double>::max()).size(), 309U);
}

TEST(FormatNumber, APatternWithoutZerosTakesTheNumberAtItsEnd)
{
    EXPECT_EQ(formatnumber("h = ", 3), "h = 3");
}

TEST(GeneralNumber, HasTheFewestDigitsThatReadBack)
{
    EXPECT_EQ(generalnumber(0.146F), "0.146");
    EXPECT_EQ(generalnumber(0.1), "0.1");
    EXPECT_EQ(generalnumber(-12.0F), "-12");
    EXPECT_EQ(generalnumber(300000.0F), "300000");
    EXPECT_EQ(generalnumber(16777216.0F), "16777216");
    EXPECT_EQ(generalnumber(0.001F), "0.001");
    EXPECT_EQ(generalnumber(-0.0), "0");
    EXPECT_EQ(generalnumber(6356752.314), "6356752.314");
}

TEST(GeneralNumber, TakesAnExponentOnlyWherePlainTextIsMostlyZeros)
{
    EXPECT_EQ(generalnumber(1e20F), "1e+20");
    EXPECT_EQ(generalnumber(1.5e-9), "1.5e-09");
    EXPECT_EQ(generalnumber(1e15), "1000000000000000");
    EXPECT_EQ(generalnumber(1e-6), "0.000001");
    EXPECT_EQ(generalnumber(std::nanf("")), "nan");
    EXPECT_EQ(generalnumber(-INFINITY), "-inf");
}

TEST(GeneralNumber, EverySingleReadsBackTheSame)
{
    std::mt19937 random(7);
    for (int i = 0; i < 20000; ++i) {
        const auto bits = static_cast<std::uint32_t>(random());
        float value = 0;
        std::memcpy(&value, &bits, sizeof value);
        if (!std::isfinite(value))
            continue;
        const std::string text = generalnumber(value);
        float back = 0;
        const auto result = std::from_chars(text.data(), text.data() + text.size(), back);
        ASSERT_EQ(result.ptr, text.data() + text.size()) << text;
        ASSERT_EQ(back, value) << text;
    }
}

TEST(LeadingNumber, ReadsWhatStandsAtTheFront)
{
    EXPECT_EQ(leadingnumber("12.5 km"), 12.5);
    EXPECT_EQ(leadingnumber("  -3"), -3);
    EXPECT_EQ(leadingnumber("+4"), 4);
    EXPECT_EQ(leadingnumber(".5"), 0.5);
    EXPECT_EQ(leadingnumber("5."), 5);
    EXPECT_EQ(leadingnumber("1e3x"), 1000);
    EXPECT_EQ(leadingnumber("1e"), 1);
    EXPECT_EQ(leadingnumber("1,5"), 1);
    EXPECT_EQ(leadingnumber("45'30"), 45);
}

TEST(LeadingNumber, IsZeroWhereThereIsNone)
{
    for (const char* text :
         {"", " ", "abc", "-", "+-1", "--1", ".", ".e5", "e5", "inf", "nan", "-inf"})
        EXPECT_EQ(leadingnumber(text), 0) << text;
}

TEST(LeadingNumber, StaysFiniteBeyondTheRangeOfDoubles)
{
    const double most = std::numeric_limits<double>::max();
    EXPECT_EQ(leadingnumber("1e999"), most);
    EXPECT_EQ(leadingnumber("-1E+999"), -most);
    EXPECT_EQ(leadingnumber("1" + std::string(400, '0')), most);
    EXPECT_EQ(leadingnumber("1e-999"), 0);
    EXPECT_EQ(leadingnumber("0." + std::string(400, '0') + "1"), 0);
}

TEST(TypedNumber, HasAPointOrAComma)
{
    EXPECT_EQ(typednumber("12,5"), 12.5);
    EXPECT_EQ(typednumber("12.5"), 12.5);
    EXPECT_EQ(typednumber(" -0,5 km"), -0.5);
    EXPECT_EQ(typednumber(",25"), 0.25);
    EXPECT_EQ(typednumber("1,5e3"), 1500);
    EXPECT_EQ(typednumber("7,"), 7);
    EXPECT_EQ(typednumber("7, 5"), 7);
    EXPECT_EQ(typednumber("1,5,5"), 1.5);
    EXPECT_EQ(typednumber("abc,5"), 0);
    EXPECT_EQ(typednumber(","), 0);
    EXPECT_EQ(typednumber(""), 0);
}

TEST(Text, IsTrimmedAtBothEnds)
{
    EXPECT_EQ(trimmed(std::string_view("\t a b \r\n\0", 9)), "a b");
    EXPECT_EQ(trimmed("   "), "");
    EXPECT_EQ(trimmed(""), "");
}

TEST(Text, LowerCaseKnowsTheLettersOfTheCodePage)
{
    EXPECT_EQ(lowercase("ABC xyz 12"), "abc xyz 12");
    EXPECT_EQ(lowercase("ÀÉÎÕÜÞ"), "àéîõüþ");
    EXPECT_EQ(lowercase("ŠŒŽŸ"), "šœžÿ");
    EXPECT_EQ(lowercase("×÷ß€日本"), "×÷ß€日本");
    EXPECT_EQ(lowercase("\xC3"), "\xC3");
}

TEST(Text, UpperCaseKnowsTheLettersOfTheCodePage)
{
    EXPECT_EQ(uppercase("abc XYZ 12"), "ABC XYZ 12");
    EXPECT_EQ(uppercase("àéîõüþ"), "ÀÉÎÕÜÞ");
    EXPECT_EQ(uppercase("šœžÿ"), "ŠŒŽŸ");
    EXPECT_EQ(uppercase("×÷ß€日本"), "×÷ß€日本");
    EXPECT_EQ(uppercase("\xC3"), "\xC3");
}

TEST(Text, IsComparedWithoutRegardToCase)
{
    EXPECT_TRUE(sametext("Réseau.NET", "rÉSEAU.net"));
    EXPECT_FALSE(sametext("a", "b"));
    EXPECT_FALSE(sametext("a", "a "));
}

TEST(CheckField, HoldsTheNumberWithinItsBounds)
{
    EXPECT_EQ(checkfield(1, 10, "5").value, 5);
    EXPECT_TRUE(checkfield(1, 10, "5").inbounds);
    EXPECT_TRUE(checkfield(1, 10, "1").inbounds);
    EXPECT_TRUE(checkfield(1, 10, "10").inbounds);
    EXPECT_EQ(checkfield(1, 10, "11").value, 10);
    EXPECT_FALSE(checkfield(1, 10, "11").inbounds);
}

TEST(CheckField, TakesADecimalComma)
{
    EXPECT_EQ(checkfield(0.1, 10, "0,5").value, 0.5);
    EXPECT_TRUE(checkfield(0.1, 10, "0,5").inbounds);
    EXPECT_FALSE(checkfield(0.1, 10, "12,5").inbounds);
}

TEST(CheckField, TextThatIsNoNumberCountsAsZero)
{
    EXPECT_EQ(checkfield(2, 10, "abc").value, 2);
    EXPECT_FALSE(checkfield(2, 10, "abc").inbounds);
    EXPECT_TRUE(checkfield(-1, 1, "").inbounds);
}

TEST(SmallerAndLarger, GiveTheSecondOnATie)
{
    EXPECT_EQ(smin(1, 2), 1);
    EXPECT_EQ(smax(1, 2), 2);
    EXPECT_TRUE(std::signbit(smin(0.0, -0.0)));
    EXPECT_FALSE(std::signbit(smax(-0.0, 0.0)));
}

TEST(RoundEven, TakesTheEvenNeighbourOnATie)
{
    EXPECT_EQ(roundtoeven(0.5), 0);
    EXPECT_EQ(roundtoeven(1.5), 2);
    EXPECT_EQ(roundtoeven(-2.5), -2);
    EXPECT_EQ(roundtoeven(2.500001), 3);
}
