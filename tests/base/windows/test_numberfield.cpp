#include "base/paint/colour.h"
#include "base/windows/numberfield.h"

#include <QTest>

#include <gtest/gtest.h>

class NumberFieldTest : public testing::Test
{
protected:
    bool red() const { return ink() == readablered(QPalette().color(QPalette::Base)); }
    QColor ink() const { return field.palette().color(QPalette::Text); }

    NumberField field{QStringLiteral("range"), 0.5, 10, nullptr};
};

TEST_F(NumberFieldTest, TakesADecimalPointAndADecimalComma)
{
    QTest::keyClicks(&field, QStringLiteral("2.5"));
    EXPECT_EQ(field.value(), 2.5);
    field.clear();
    QTest::keyClicks(&field, QStringLiteral("2,5"));
    EXPECT_EQ(field.value(), 2.5);
    EXPECT_EQ(field.typed(), 2.5);
    EXPECT_FALSE(red());
}

TEST_F(NumberFieldTest, WritesAPoint)
{
    field.setnumber(0.146F);
    EXPECT_EQ(field.text(), QStringLiteral("0.146"));
}

TEST_F(NumberFieldTest, HoldsTheValueAndShowsATextOutOfBoundsInRed)
{
    field.setText(QStringLiteral("10,5"));
    EXPECT_TRUE(red());
    EXPECT_FALSE(field.inbounds());
    EXPECT_EQ(field.value(), 10);
    EXPECT_EQ(field.typed(), 10.5);
    EXPECT_EQ(field.text(), QStringLiteral("10,5")) << "what was typed stays";
    field.setText(QStringLiteral("abc"));
    EXPECT_TRUE(red());
    EXPECT_EQ(field.value(), 0.5);
    field.setText(QStringLiteral("10"));
    EXPECT_EQ(ink(), QPalette().color(QPalette::Text));
}

TEST_F(NumberFieldTest, NewBoundsJudgeTheTextThatIsThere)
{
    field.setnumber(20);
    EXPECT_TRUE(red());
    field.setbounds(0, 30);
    EXPECT_FALSE(red());
}

TEST_F(NumberFieldTest, TheRedCanBeRead)
{
    field.setnumber(20);
    EXPECT_GE(contrast(ink(), field.palette().color(QPalette::Base)), 4.5);
}

TEST_F(NumberFieldTest, WhatIsOnlyReadIsNeverRed)
{
    field.setReadOnly(true);
    field.setnumber(20);
    EXPECT_FALSE(red());
}
