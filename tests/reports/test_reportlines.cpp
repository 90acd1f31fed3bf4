#include "reports/reportlines.h"

#include <gtest/gtest.h>

TEST(ReportWriter, TextsFollowEachOtherAndTabsMoveToColumns)
{
    ReportWriter out;
    out.write("Nom");
    out.writeat(6, "x");
    out.write("y", 5);
    out.endline();
    out.line("été");
    EXPECT_EQ(reporttext(out.lines()), "Nom  xy\r\nété\r\n");
    EXPECT_EQ(out.lines()[0][2], (ReportPiece{7, "y", 5}));
    EXPECT_EQ(reportwidth(out.lines()), 7);
}

TEST(ReportWriter, ColumnsCountCharactersNotBytes)
{
    ReportWriter out;
    out.write("Éléphant");
    out.writeat(10, "!");
    EXPECT_EQ(reporttext(out.lines()), "Éléphant !");
    EXPECT_EQ(charactercount("Éléphant"), 8);
}

TEST(ReportWriter, MoveToAColumnAlreadyPassedOverwritesNothing)
{
    ReportWriter out;
    out.write("123456");
    out.writeat(3, "7");
    EXPECT_EQ(reporttext(out.lines()), "1234567");
}

TEST(ReportWriter, EmptyTextsLeaveNoPiece)
{
    ReportWriter out;
    out.writeat(9, "");
    EXPECT_TRUE(out.lines()[0].empty());
    EXPECT_EQ(reportwidth(out.lines()), 0);
}
