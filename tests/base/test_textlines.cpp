#include "base/textcodec.h"
#include "base/textlines.h"

#include <gtest/gtest.h>
#include <vector>

static std::vector<std::string> alllines(std::string_view text)
{
    std::vector<std::string> lines;
    while (!text.empty())
        lines.emplace_back(takeline(text));
    return lines;
}

TEST(TextLines, EndAtEitherCharacterOrAtBoth)
{
    EXPECT_EQ(alllines("a\r\nb\nc\rd"), (std::vector<std::string>{"a", "b", "c", "d"}));
    EXPECT_EQ(alllines("a\r\n"), (std::vector<std::string>{"a"}));
    EXPECT_EQ(alllines("\n\r\n\r"), (std::vector<std::string>{"", "", ""}));
    EXPECT_TRUE(alllines("").empty());
}

static std::string folded(const char* text)
{
    return foldedtext(toansi(text));
}

TEST(FoldedText, DropsCaseAndAccents)
{
    EXPECT_EQ(folded("Montréal"), "montreal");
    EXPECT_EQ(folded("ÀÂÄÇÉÈÊËÎÏÑÔÖÙÛÜŸŠŽ"), "aaaceeeeiinoouuuysz");
    EXPECT_EQ(folded("àâäçéèêëîïñôöùûüÿšž"), "aaaceeeeiinoouuuysz");
    EXPECT_EQ(folded("Saint-Denis 2"), "saint-denis 2");
}

TEST(FoldedText, WritesLigaturesAsTwoLetters)
{
    EXPECT_EQ(folded("Œuf ŒUF œuf Æsir Straße Þór"), "oeuf oeuf oeuf aesir strasse thor");
    EXPECT_EQ(folded("L’Île"), "l'ile");
}

TEST(FoldedText, KeepsWhatIsNoLetter)
{
    EXPECT_EQ(folded("3 × 4 ÷ 2 °"), toansi("3 × 4 ÷ 2 °"));
    EXPECT_EQ(foldedtext(std::string("\0\x81\x9D", 3)), std::string("\0\x81\x9D", 3));
}
