#include "pictures/printlayout.h"

#include <gtest/gtest.h>

// A4 at 1200 dots an inch with margins, about 0.69 and 1.46 to 1.
static constexpr double longside = 13500;
static constexpr double shortside = 9300;

TEST(PrintLayout, TurnsThePageForAWidePicture)
{
    EXPECT_TRUE(printslandscape(301, 300));
    EXPECT_FALSE(printslandscape(300, 300));
    EXPECT_FALSE(printslandscape(300, 301));
}

TEST(PrintLayout, APictureLessWideThanThePageTakesItsWidth)
{
    const PrintSize size = printsize(1200, 1000, longside, shortside);
    EXPECT_DOUBLE_EQ(size.width, longside);
    EXPECT_NEAR(size.height, longside / 1.2, 1e-6) << "and reaches beyond it";
}

TEST(PrintLayout, APictureWiderThanThePageTakesItsHeight)
{
    const PrintSize size = printsize(1600, 1000, longside, shortside);
    EXPECT_NEAR(size.width, shortside * 1.6, 1e-6);
    EXPECT_DOUBLE_EQ(size.height, shortside);
}

TEST(PrintLayout, KeepsTheShapeOfThePicture)
{
    for (const int width : {10, 333, 1000, 1451, 1452, 4000}) {
        const bool wide = printslandscape(width, 1000);
        const PrintSize size = wide ? printsize(width, 1000, longside, shortside)
                                    : printsize(width, 1000, shortside, longside);
        EXPECT_NEAR(size.width / size.height, width / 1000.0, 1e-9);
    }
}

TEST(PrintLayout, ComparesTheShapesAsTexts)
{
    // 1.05 is less than 1.4516129 but 12 is more, and so do their texts say.
    EXPECT_DOUBLE_EQ(printsize(1050, 1000, longside, shortside).width, longside);
    EXPECT_DOUBLE_EQ(printsize(12000, 1000, longside, shortside).height, shortside);
    // 10 is more than 9, but its text is less: the page's whole width is taken.
    EXPECT_DOUBLE_EQ(printsize(10000, 1000, 9000, 1000).width, 9000);
}

TEST(PrintLayout, APageWithoutRoomTakesNothing)
{
    EXPECT_EQ(printsize(100, 100, 0, 0).width, 0);
}
