#include "pictures/copytext.h"

#include <gtest/gtest.h>

static Picture placed()
{
    Picture picture;
    picture.source = "Sélection";
    picture.Pictype = pictype::fourcorners;
    picture.lon = {-7.5F, 8, 8.25F, -7.123456F};
    picture.lat = {45, 45.5F, -44, 4};
    return picture;
}

TEST(CopyText, HasTenFieldsEachEndedByATab)
{
    EXPECT_EQ(copytext(placed()),
              "-007.50000\t45.00000\t008.00000\t45.50000\t008.25000\t-44.00000\t"
              "-007.12346\t04.00000\t02\tSélection\t");
}

TEST(CopyText, ComesBack)
{
    Picture picture;
    parsecopytext(copytext(placed()), picture);
    EXPECT_EQ(picture.Pictype, pictype::fourcorners);
    EXPECT_EQ(picture.source, "Sélection");
    for (std::size_t corner = 0; corner < 4; ++corner) {
        EXPECT_NEAR(picture.lon[corner], placed().lon[corner], 5.5e-6);
        EXPECT_NEAR(picture.lat[corner], placed().lat[corner], 5.5e-6);
    }
}

TEST(CopyText, HoldsTheKindWithinItsBounds)
{
    const auto kind = [](const std::string& field) {
        Picture picture;
        parsecopytext("1\t2\t3\t4\t5\t6\t7\t8\t" + field + "\tx\t", picture);
        return picture.Pictype;
    };
    EXPECT_EQ(kind("99"), 20);
    EXPECT_EQ(kind("-3"), 0);
    EXPECT_EQ(kind("01"), 1);
    EXPECT_EQ(kind("1e30"), 20);
    EXPECT_EQ(kind("un"), 0);
}

TEST(CopyText, TakesTheFieldsThatThereAre)
{
    Picture picture = placed();
    parsecopytext("1.5\t2.5\t3.5", picture);
    EXPECT_EQ(picture.lon[0], 1.5F);
    EXPECT_EQ(picture.lat[0], 2.5F);
    EXPECT_EQ(picture.lon[1], 3.5F);
    EXPECT_EQ(picture.lat[1], placed().lat[1]);
    EXPECT_EQ(picture.Pictype, placed().Pictype);
    EXPECT_EQ(picture.source, placed().source);
}

TEST(CopyText, ReadsATextOfAnotherProgramAsZeros)
{
    Picture picture = placed();
    parsecopytext("Bonjour à tous", picture);
    EXPECT_EQ(picture.lon[0], 0);
    EXPECT_EQ(picture.lat[0], placed().lat[0]);
    EXPECT_EQ(picture.source, "Sélection");
    parsecopytext("", picture);
    EXPECT_EQ(picture.source, "Sélection");
}

TEST(CopyText, EndsAtANumberThatNoPlaceCanHave)
{
    Picture picture;
    parsecopytext("1\t1e308\t3\t4\t5\t6\t7\t8\t09\tx\t", picture);
    EXPECT_EQ(picture.lon[0], 1);
    EXPECT_EQ(picture.lat[0], 0);
    EXPECT_EQ(picture.Pictype, pictype::plain);
}

TEST(CopyText, KeepsAnEmptySourceAndStopsBehindTheTenthField)
{
    Picture picture;
    parsecopytext("1\t2\t3\t4\t5\t6\t7\t8\t02\t\tmore\t", picture);
    EXPECT_EQ(picture.source, "");
    parsecopytext("1\t2\t3\t4\t5\t6\t7\t8\t02\tWithout a last tab", picture);
    EXPECT_EQ(picture.source, "Without a last tab");
}
