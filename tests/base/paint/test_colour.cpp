#include "base/paint/colour.h"

#include <gtest/gtest.h>

TEST(Colour, FilesHoldBlueGreenRed)
{
    EXPECT_EQ(colorof(0x0000FF), QColor(255, 0, 0));
    EXPECT_EQ(colourvalue(QColor(1, 2, 3)), 0x030201);
}

TEST(Colour, ContrastRunsFromOneToTwentyOne)
{
    EXPECT_DOUBLE_EQ(contrast(Qt::white, Qt::white), 1);
    EXPECT_NEAR(contrast(Qt::black, Qt::white), 21, 1e-9);
    EXPECT_NEAR(contrast(Qt::white, Qt::red), 4.0, 0.01); // published for pure red on white
}

TEST(Colour, RedIsReadableOnPaperAndOnDarkDesktops)
{
    for (const QColor& background : {QColor(255, 255, 255), QColor(239, 239, 239),
                                     QColor(27, 30, 32), QColor(49, 54, 59), QColor(0, 0, 0)}) {
        const QColor red = readablered(background);
        EXPECT_GE(contrast(red, background), 4.5) << background.name().toStdString();
        EXPECT_GT(red.red(), 2 * red.green()) << "it is still a red";
    }
    EXPECT_EQ(readablered(Qt::black), QColor(255, 0, 0)) << "where it can be read it is pure";
}
