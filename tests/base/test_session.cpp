#include "base/hooks.h"
#include "base/numbers.h"
#include "base/session.h"
#include "support/tempfolder.h"

#include <gmock/gmock.h>

using testing::ElementsAre;

class RecentTest : public testing::Test
{
protected:
    void SetUp() override
    {
        session = Session();
        for (const char* name : {"a.net", "b.net", "c.net", "d.net", "e.net"})
            disk.makefile(name);
        hooks.recentchanged = [this] { ++changes; };
    }
    void TearDown() override
    {
        session = Session();
        resethooks();
    }
    void add(std::string path) { addrecent(path); }
    std::string at(const char* name) const { return disk.path(name); }

    TempFolder disk;
    int changes = 0;
};

/// Paths as the list holds them.
static std::string low(const std::string& text)
{
    return lowercase(text);
}

TEST_F(RecentTest, TheNewestStandsFirstInLowerCase)
{
    add(at("a.net"));
    std::string path = "  " + at("B.NET") + " ";
    addrecent(path);
    EXPECT_EQ(path, low(at("b.net")));
    EXPECT_THAT(session.recent, ElementsAre(low(at("b.net")), low(at("a.net")), "", ""));
    EXPECT_EQ(changes, 2);
}

TEST_F(RecentTest, TheFifthPushesTheOldestOut)
{
    for (const char* name : {"a.net", "b.net", "c.net", "d.net", "e.net"})
        add(at(name));
    EXPECT_THAT(session.recent, ElementsAre(low(at("e.net")), low(at("d.net")), low(at("c.net")),
                                            low(at("b.net"))));
}

TEST_F(RecentTest, AKnownNameChangesPlacesWithTheFirst)
{
    for (const char* name : {"a.net", "b.net", "c.net"})
        add(at(name));
    add(at("a.net"));
    EXPECT_THAT(session.recent,
                ElementsAre(low(at("a.net")), low(at("b.net")), low(at("c.net")), ""));
}

TEST_F(RecentTest, TheSameNameInAnotherFolderTakesTheEntryOver)
{
    add(at("a.net"));
    add("/elsewhere/A.net");
    EXPECT_THAT(session.recent, ElementsAre("/elsewhere/a.net", "", "", ""));
}

TEST_F(RecentTest, FilesThatHaveGoneLeaveEmptyEntriesWhenTheListMoves)
{
    add("/nowhere/gone.net");
    add(at("a.net"));
    EXPECT_THAT(session.recent, ElementsAre(low(at("a.net")), "", "", ""));
}

TEST_F(RecentTest, CaptionsNumberTheEntriesAndHideEmptyOnes)
{
    add(at("a.net"));
    add(at("b.net"));
    EXPECT_EQ(recentcaption(0), "&1 b.net");
    EXPECT_EQ(recentcaption(1), "&2 a.net");
    EXPECT_EQ(recentcaption(2), "");
    EXPECT_EQ(recentcaption(4), "");
    EXPECT_EQ(recentcaption(-1), "");
}

TEST_F(RecentTest, TheMainCaptionNamesTheNetwork)
{
    session.netfile = "/plans/nord.net";
    EXPECT_EQ(maincaption(), "Velmora - ..\\nord.net");
}

TEST(Version, HasThreeParts)
{
    EXPECT_THAT(appversion(), testing::MatchesRegex("[0-9]+\\.[0-9]+\\.[0-9]+"));
}
