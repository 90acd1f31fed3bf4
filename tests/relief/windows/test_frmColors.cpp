#include "base/paint/colour.h"
#include "base/windows/choosers.h"
#include "base/windows/colourbutton.h"
#include "pictures/paint/picturetest.h"
#include "relief/windows/frmColors.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

class FrmColors : public PictureTest
{
protected:
    void TearDown() override
    {
        askcolour = colourdialog;
        PictureTest::TearDown();
    }

    void open(const ColorEdit& edit)
    {
        dialog = std::make_unique<frmColors>(edit, 200.0F, 1200.0F);
        dialog->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(dialog.get()));
    }
    void open() { open(editlevels(colours)); }

    template <typename T> T* child(const char* name) const
    {
        T* found = dialog->findChild<T*>(QString::fromLatin1(name));
        EXPECT_TRUE(found) << name;
        return found;
    }
    void press(const char* name) const
    {
        QTest::mouseClick(child<QPushButton>(name), Qt::LeftButton);
    }
    std::string value(int i) const
    {
        return child<QLineEdit>(("value" + std::to_string(i)).c_str())->text().toStdString();
    }
    ColourButton* colour(int i) const
    {
        return child<ColourButton>(("colour" + std::to_string(i)).c_str());
    }
    static bool isred(const QLineEdit* field)
    {
        return field->palette().color(QPalette::Text) ==
               readablered(QPalette().color(QPalette::Base));
    }

    std::unique_ptr<frmColors> dialog;
};

TEST_F(FrmColors, OpensWithTheTable)
{
    colours.stratified = 1;
    open();
    EXPECT_EQ(dialog->windowTitle(), QStringLiteral("Couleurs arc-en-ciel"));
    EXPECT_EQ(child<QLabel>("caption")->text(), QStringLiteral("Altitude (m)"));
    for (int i = 0; i < 12; ++i)
        EXPECT_EQ(colour(i)->colour(), colours.colortable[static_cast<std::size_t>(i)]) << i;
    for (int i = 0; i < 11; ++i)
        EXPECT_EQ(value(i), std::to_string(colours.levels[static_cast<std::size_t>(i)])) << i;
    EXPECT_EQ(child<QLabel>("below")->text().toStdString(), "< " + value(0));
    EXPECT_TRUE(child<QCheckBox>("stratified")->isChecked());
    EXPECT_FALSE(child<QCheckBox>("legend")->isChecked());
}

TEST_F(FrmColors, HasTheseTexts)
{
    open();
    const auto text = [this](const char* name) {
        return child<QAbstractButton>(name)->text().toStdString();
    };
    EXPECT_EQ(text("ramp1"), "Couleurs 1");
    EXPECT_EQ(text("ramp4"), "Couleurs 4");
    EXPECT_EQ(text("relative"), "Échelle relative");
    EXPECT_EQ(text("absolute"), "Échelle absolue");
    EXPECT_EQ(text("stratified"), "Couleurs statifiées");
    EXPECT_EQ(text("legend"), "Montrer légende");
    EXPECT_EQ(text("apply"), "Appliquer");
    EXPECT_EQ(text("keep"), "Appliquer et garder");
    EXPECT_EQ(text("cancel"), "Annuler");
}

TEST_F(FrmColors, TheLabelBelowFollowsTheFirstLevel)
{
    open();
    child<QLineEdit>("value0")->setText(QStringLiteral("77"));
    EXPECT_EQ(child<QLabel>("below")->text(), QStringLiteral("< 77"));
}

TEST_F(FrmColors, ALevelBeyondSixteenBitsIsRedAndHeld)
{
    open();
    auto* field = child<QLineEdit>("value10");
    field->setText(QStringLiteral("99999"));
    EXPECT_TRUE(isred(field));
    field->setText(QStringLiteral("3000"));
    EXPECT_FALSE(isred(field));
    field->setText(QStringLiteral("99999"));
    press("apply");
    EXPECT_EQ(colours.levels[10], 32767);
}

TEST_F(FrmColors, AColourButtonAsksWithItsColourAndTakesTheChoice)
{
    open();
    QColor offered;
    askcolour = [&offered](const QColor& start, QWidget*) {
        offered = start;
        return std::optional(QColor(1, 2, 3));
    };
    QTest::mouseClick(colour(0), Qt::LeftButton);
    EXPECT_EQ(offered, QColor(90, 150, 205));
    EXPECT_EQ(colour(0)->colour(), 0x030201);
    press("apply");
    EXPECT_EQ(colours.colortable[0], 0x030201);
}

TEST_F(FrmColors, GivingUpTheColourDialogKeepsTheColour)
{
    open();
    askcolour = [](const QColor&, QWidget*) { return std::optional<QColor>(); };
    const std::int32_t before = colour(5)->colour();
    colour(5)->setFocus();
    QTest::keyClick(colour(5), Qt::Key_Space);
    EXPECT_EQ(colour(5)->colour(), before);
}

TEST_F(FrmColors, EnterOnAColourAsksForItAndDoesNotApply)
{
    open();
    int asked = 0;
    askcolour = [&asked](const QColor&, QWidget*) {
        ++asked;
        return std::optional<QColor>();
    };
    colour(5)->setFocus();
    QTest::keyClick(colour(5), Qt::Key_Return);
    EXPECT_EQ(asked, 1);
    EXPECT_TRUE(dialog->isVisible());
}

TEST_F(FrmColors, ARampFillsAllColours)
{
    open();
    press("ramp3");
    for (int i = 0; i < 12; ++i)
        EXPECT_EQ(colour(i)->colour(), colorramp(3)[static_cast<std::size_t>(i)]) << i;
}

TEST_F(FrmColors, CancelAfterARampLeavesTheTable)
{
    const Colours before = colours;
    open();
    press("ramp2");
    press("absolute");
    press("cancel");
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(colours, before);
}

TEST_F(FrmColors, EscapeLeavesTheTable)
{
    const Colours before = colours;
    open();
    press("ramp2");
    QTest::keyClick(dialog.get(), Qt::Key_Escape);
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(colours, before);
}

TEST_F(FrmColors, TheScalesFillTheLevelsAndAreStoredOnApply)
{
    open();
    press("absolute");
    EXPECT_EQ(value(0), "1");
    EXPECT_EQ(value(10), "1000");
    EXPECT_EQ(colours.absolutescale, 0) << "not before it is applied";
    press("apply");
    EXPECT_EQ(colours.absolutescale, 1);
    EXPECT_EQ(colours.levels[1], 100);

    open();
    press("relative");
    EXPECT_EQ(value(0), "200");
    EXPECT_EQ(value(5), "700");
    press("apply");
    EXPECT_EQ(colours.absolutescale, 0);
    EXPECT_EQ(colours.levels[10], 1200);
}

TEST_F(FrmColors, ApplyStoresTheChecksAndWritesNoFile)
{
    open();
    child<QCheckBox>("stratified")->setChecked(true);
    child<QCheckBox>("legend")->setChecked(true);
    press("apply");
    EXPECT_EQ(colours.stratified, 1);
    EXPECT_EQ(colours.showlegend, 1);
    EXPECT_FALSE(findprogramfile("colors.dat"));
}

TEST_F(FrmColors, ApplyAndKeepWritesTheFile)
{
    open();
    press("ramp1");
    press("keep");
    EXPECT_FALSE(dialog->isVisible());
    const auto path = findprogramfile("colors.dat");
    ASSERT_TRUE(path);
    EXPECT_EQ(readfile(*path), colorstext(colours));
    EXPECT_EQ(colours.colortable, colorramp(1));
}

class FrmColorsSignal : public FrmColors
{
protected:
    void SetUp() override
    {
        FrmColors::SetUp();
        std::array<float, 11> levels{};
        for (std::size_t i = 0; i < levels.size(); ++i)
            levels[i] = -120 + 5 * static_cast<float>(i);
        open(editsignal(colours, levels));
    }
};

TEST_F(FrmColorsSignal, ShowsTheSignalsLevelsWithoutEditingThem)
{
    EXPECT_EQ(child<QLabel>("caption")->text(), QStringLiteral("Signal"));
    EXPECT_EQ(value(0), "-120");
    EXPECT_EQ(value(10), "-70");
    EXPECT_TRUE(child<QLineEdit>("value0")->isReadOnly());
    EXPECT_FALSE(child<QCheckBox>("stratified")->isEnabled());
    EXPECT_FALSE(child<QPushButton>("relative")->isEnabled());
    EXPECT_FALSE(child<QPushButton>("absolute")->isEnabled());
    EXPECT_TRUE(child<QCheckBox>("legend")->isEnabled());
}

TEST_F(FrmColorsSignal, ApplyLeavesTheElevationLevels)
{
    const auto before = colours.levels;
    press("ramp1");
    press("apply");
    EXPECT_EQ(colours.levels, before);
    EXPECT_EQ(colours.colortable, colorramp(1));
}

TEST_F(FrmColorsSignal, ApplyAndKeepStoresTheSignalsLevelsToo)
{
    press("keep");
    EXPECT_EQ(colours.levels[0], -120);
    EXPECT_EQ(colours.levels[10], -70);
}
