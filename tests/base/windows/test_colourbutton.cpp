#include "base/windows/choosers.h"
#include "base/windows/colourbutton.h"

#include <QTest>

#include <gtest/gtest.h>

class ColourButtonTest : public testing::Test
{
protected:
    void SetUp() override
    {
        askcolour = [this](const QColor& start, QWidget*) {
            asked = start;
            return answer;
        };
    }
    void TearDown() override { askcolour = colourdialog; }

    QColor asked;
    std::optional<QColor> answer;
};

TEST_F(ColourButtonTest, APressAsksAndTakesTheChoice)
{
    ColourButton button(QStringLiteral("ink"), QStringLiteral("Couleur"), nullptr);
    button.setcolour(0x0000FF);
    int changes = 0;
    QObject::connect(&button, &ColourButton::changed, [&] { ++changes; });
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_EQ(asked, QColor(255, 0, 0));
    EXPECT_EQ(button.colour(), 0x0000FF) << "the user gave up";
    answer = QColor(1, 2, 3);
    QTest::keyClick(&button, Qt::Key_Return);
    EXPECT_EQ(button.colour(), 0x030201);
    EXPECT_EQ(changes, 1);
}

TEST_F(ColourButtonTest, WithoutACaptionItIsAllSwatch)
{
    ColourButton button;
    button.setcolour(0x00FF00);
    button.resize(button.sizeHint());
    const QImage shown = button.grab().toImage();
    for (const int x : {6, shown.width() / 2, shown.width() - 7})
        EXPECT_EQ(shown.pixelColor(x, shown.height() / 2), QColor(0, 255, 0)) << x;
}

TEST_F(ColourButtonTest, WithACaptionTheSwatchStandsInFrontOfIt)
{
    ColourButton button(QStringLiteral("ink"), QStringLiteral("Couleur"), nullptr);
    button.setcolour(0x00FF00);
    button.resize(button.sizeHint());
    const QImage shown = button.grab().toImage();
    EXPECT_EQ(shown.pixelColor(12, shown.height() / 2), QColor(0, 255, 0));
    EXPECT_NE(shown.pixelColor(shown.width() - 12, shown.height() / 2), QColor(0, 255, 0));
}

TEST_F(ColourButtonTest, APressCanDoSomethingElse)
{
    ColourButton button;
    bool pressed = false;
    button.setpress([&] { pressed = true; });
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_TRUE(pressed);
    EXPECT_FALSE(asked.isValid());
}
