#include "base/paint/colour.h"
#include "base/settings.h"
#include "coverage/windows/frmCoverage.h"
#include "coverage/windows/sweepfields.h"
#include "pictures/paint/picturetest.h"
#include "relief/paint/drawmap.h"

#include <QApplication>
#include <QCheckBox>
#include <QRadioButton>
#include <QTest>
#include <QTimer>

#include <fstream>
#include <memory>

namespace
{
class CoverageDialog : public PictureTest
{
protected:
    void SetUp() override
    {
        PictureTest::SetUp();
        resetsettings();
        coveragechoice = {};
        selection = {};
        mapgrid.record.mapsize = 40;
        station(1, 7.5F, 44.5F, "Centre");
        station(2, 7.8F, 44.5F, "Mobile");
        station(3, 7.5F, 44.8F, "Nord");
        for (const int u : {1, 2})
            network.nets[2].member[static_cast<std::size_t>(u)] = memberbit;
        network.nets[2].name.assign("Deux");
        std::ofstream(path("yagi.ant")) << "0\n";
        open();
    }
    void open() { dialog = std::make_unique<frmCoverage>(); }

    template <typename T> T& get(const char* name)
    {
        auto* found = dialog->findChild<T*>(QString::fromLatin1(name));
        if (found == nullptr)
            throw std::runtime_error(name);
        return *found;
    }
    std::string text(const char* name) { return get<NumberField>(name).text().toStdString(); }
    void type(const char* name, const char* value)
    {
        auto& field = get<NumberField>(name);
        field.setText(QString::fromUtf8(value));
        emit field.editingFinished();
    }
    bool enabled(const char* name) { return get<QWidget>(name).isEnabled(); }
    void click(const char* name) { get<QAbstractButton>(name).click(); }

    std::unique_ptr<frmCoverage> dialog;
};
} // namespace

TEST_F(CoverageDialog, ShowsTheStoredParametersWithinTheirRanges)
{
    EXPECT_EQ(dialog->windowTitle().toStdString(), "Couverture radio");
    EXPECT_EQ(get<QComboBox>("centrelist").currentText().toStdString(), "Centre");
    EXPECT_EQ(get<QComboBox>("mobilelist").currentText().toStdString(), "Mobile");
    EXPECT_EQ(get<QComboBox>("centrelist").count(), 50);
    EXPECT_EQ(text("rmin"), "0.1") << "0 is below the field's range";
    EXPECT_EQ(text("rmax"), "100");
    EXPECT_EQ(text("azmin"), "0");
    EXPECT_EQ(text("azmax"), "360");
    EXPECT_EQ(text("step"), "1");
    EXPECT_EQ(text("low"), "1") << "-107 is no S-unit";
    EXPECT_EQ(text("high"), "9");
    EXPECT_TRUE(get<QCheckBox>("surface").isChecked());
    EXPECT_FALSE(get<QCheckBox>("curve").isChecked());
    EXPECT_FALSE(get<QCheckBox>("rainbow").isChecked());
    EXPECT_EQ(get<ColourButton>("surfacecolour").colour(), 0x00FFFF);
}

TEST_F(CoverageDialog, NetListFollowsTheStations)
{
    EXPECT_EQ(get<QComboBox>("netlist").currentText().toStdString(), "Deux");
    get<QComboBox>("mobilelist").setCurrentIndex(2);
    EXPECT_EQ(get<QComboBox>("netlist").currentText().toStdString(), "Pas de réseau en commun");
    click("apply");
    EXPECT_FALSE(dialog->applied());
    get<QComboBox>("mobilelist").setCurrentIndex(1);
    EXPECT_EQ(get<QComboBox>("netlist").currentText().toStdString(), "Deux");
    network.units[2].enabled = 0;
    open();
    EXPECT_EQ(get<QComboBox>("netlist").currentText().toStdString(), "Pas de réseau en commun");
}

TEST_F(CoverageDialog, PatternListBeginsWithOmniAndKeepsTheStoredFile)
{
    auto& list = get<QComboBox>("patternlist");
    EXPECT_EQ(list.itemText(0).toStdString(), "omni.ant");
    EXPECT_EQ(list.itemText(1).toStdString(), "yagi.ant");
    EXPECT_EQ(list.currentIndex(), 0);
    network.coverage.antfile.assign("yagi.ant");
    open();
    EXPECT_EQ(get<QComboBox>("patternlist").currentIndex(), 1);
}

TEST_F(CoverageDialog, FieldsAreEnabledByTheirBoxes)
{
    EXPECT_TRUE(enabled("low") && enabled("high") && enabled("rainbow") &&
                enabled("surfacecolour"));
    EXPECT_FALSE(enabled("curvecolour"));
    click("surface");
    EXPECT_FALSE(enabled("low") || enabled("high") || enabled("rainbow") ||
                 enabled("surfacecolour"));
    click("curve");
    EXPECT_TRUE(enabled("low") && enabled("curvecolour"));
    EXPECT_FALSE(enabled("high"));
}

TEST_F(CoverageDialog, RainbowMakesTheSurfaceColourBlackAndBackYellow)
{
    click("rainbow");
    EXPECT_EQ(get<ColourButton>("surfacecolour").colour(), 0);
    bool readonly = false;
    QTimer::singleShot(0, [&] {
        QWidget* scale = QApplication::activeModalWidget();
        ASSERT_NE(scale, nullptr);
        EXPECT_EQ(scale->objectName().toStdString(), "frmColors");
        for (const QLineEdit* level : scale->findChildren<QLineEdit*>())
            readonly = level->isReadOnly();
        scale->close();
    });
    click("surfacecolour");
    EXPECT_TRUE(readonly) << "the levels of a signal are shown only";
    click("rainbow");
    EXPECT_EQ(get<ColourButton>("surfacecolour").colour(), 0x00FFFF);
}

TEST_F(CoverageDialog, LevelsChangeWithTheUnit)
{
    click("unit1");
    EXPECT_EQ(text("low"), "-107.0");
    EXPECT_EQ(text("high"), "-67.0");
    click("unit2");
    EXPECT_EQ(text("low"), "1.000");
    EXPECT_EQ(text("high"), "100.000");
    type("high", "10");
    click("unit1");
    EXPECT_EQ(text("high"), "-87.0");
    click("unit0");
    EXPECT_EQ(text("low"), "1");
}

TEST_F(CoverageDialog, PairsKeepATenthFromEachOther)
{
    type("rmax", "5000");
    EXPECT_EQ(text("rmax"), "1000");
    type("rmin", "2000");
    EXPECT_EQ(text("rmin"), "999.9");
    type("rmin", "-3");
    EXPECT_EQ(text("rmin"), "0.1");
    type("azmax", "90");
    type("azmin", "200");
    EXPECT_EQ(text("azmin"), "89.9");
    type("azmax", "10");
    EXPECT_EQ(text("azmax"), "90");
    type("step", "0.01");
    EXPECT_EQ(text("step"), "0.1");
    click("unit1");
    type("low", "-50");
    EXPECT_EQ(text("low"), "-67.1");
    type("high", "-300");
    EXPECT_EQ(text("high"), "-67.0");
}

TEST_F(CoverageDialog, TextOutOfBoundsIsRedWhileItIsTyped)
{
    auto& field = get<NumberField>("step");
    field.setText(QStringLiteral("11"));
    EXPECT_EQ(field.palette().color(QPalette::Text), readablered(QPalette().color(QPalette::Base)));
    field.setText(QStringLiteral("9"));
    EXPECT_EQ(field.palette().color(QPalette::Text), QColor(Qt::black));
}

TEST_F(CoverageDialog, LinkAzimuthIsTakenFromThePicture)
{
    drawmap(nullptr, true);
    open();
    EXPECT_TRUE(enabled("antaz"));
    click("uselink");
    EXPECT_FALSE(enabled("antaz"));
    EXPECT_EQ(text("antaz"), "90.0") << "the mobile lies due east";
    get<QComboBox>("mobilelist").setCurrentIndex(2);
    EXPECT_EQ(text("antaz"), "0.0") << "and now due north";
    click("uselink");
    EXPECT_TRUE(enabled("antaz"));
}

TEST_F(CoverageDialog, ApplyStoresTheParametersAndCloses)
{
    click("unit1");
    type("low", "-100");
    type("rmax", "30");
    type("azmax", "180");
    click("curve");
    get<QRadioButton>("direction1").click();
    get<QComboBox>("patternlist").setCurrentIndex(1);
    click("apply");
    EXPECT_TRUE(dialog->applied());
    EXPECT_EQ(network.coverage.rangemax, 30);
    EXPECT_EQ(network.coverage.azmax, 180);
    EXPECT_EQ(network.coverage.unit, 1);
    EXPECT_EQ(network.coverage.drawcurve, -1);
    EXPECT_EQ(network.coverage.antfile.text(), "yagi.ant");
    EXPECT_EQ(selection.linkunit1, 1);
    EXPECT_EQ(selection.linkunit2, 2);
    EXPECT_EQ(selection.linknet, 2);
    EXPECT_EQ(coveragechoice.covdir, 1);
    EXPECT_EQ(coveragechoice.levels, (Levels{-100, -67}));
    EXPECT_EQ(getsetting("CovLow", ""), "-100");
    EXPECT_EQ(getsetting("CovIndex", ""), "1");
    EXPECT_EQ(rainbowlevel[10], -67);
}

TEST_F(CoverageDialog, ApplyNeedsSomethingToDrawAndTwoStations)
{
    click("surface");
    click("apply");
    EXPECT_FALSE(dialog->applied());
    click("surface");
    get<QComboBox>("mobilelist").setCurrentIndex(0);
    click("apply");
    EXPECT_FALSE(dialog->applied());
}

TEST_F(CoverageDialog, EscapeStoresNoParameters)
{
    type("rmax", "30");
    click("unit1");
    type("low", "-90");
    click("direction1");
    QTest::keyClick(dialog.get(), Qt::Key_Escape);
    EXPECT_FALSE(dialog->applied());
    EXPECT_EQ(network.coverage.rangemax, 100);
    EXPECT_EQ(selection.linknet, 1);
    EXPECT_EQ(coveragechoice.covdir, 0);
    EXPECT_EQ(getsetting("CovLow", ""), "-107");
    EXPECT_EQ(getsetting("CovDir", ""), "0");
}

TEST_F(CoverageDialog, BeginsWithThePairOfTheLinkWindow)
{
    selection.linkunit1 = 2;
    selection.linkunit2 = 1;
    network.nets[5].member[1] = network.nets[5].member[2] = memberbit;
    network.nets[5].name.assign("Cinq");
    selection.linknet = 5;
    open();
    EXPECT_EQ(get<QComboBox>("centrelist").currentText().toStdString(), "Mobile");
    EXPECT_EQ(get<QComboBox>("mobilelist").currentText().toStdString(), "Centre");
    EXPECT_EQ(get<QComboBox>("netlist").currentText().toStdString(), "Cinq");
}

TEST_F(CoverageDialog, ALevelThatNobodyTouchesKeepsItsDigits)
{
    click("unit1");
    type("low", "-119.96");
    EXPECT_EQ(text("low"), "-120.0");
    emit get<NumberField>("low").editingFinished();
    click("unit2");
    emit get<NumberField>("low").editingFinished();
    click("apply");
    EXPECT_EQ(coveragechoice.levels.low, -119.96F);
}

TEST_F(CoverageDialog, StoresAzimuthsUpToTheirFieldsBounds)
{
    type("azmin", "359.5");
    type("antaz", "360");
    click("apply");
    EXPECT_EQ(network.coverage.azmin, 359.5F);
    EXPECT_EQ(network.coverage.antazimuth, 360);
    open();
    EXPECT_EQ(text("azmin"), "359");
    EXPECT_EQ(text("antaz"), "359.99");
}

TEST_F(CoverageDialog, HaatReportsOnTheCentralStation)
{
    std::string opened;
    hooks.viewtext = [&](const std::string& file) { opened = file; };
    click("haat");
    EXPECT_EQ(opened, path("Haat.txt"));
}

TEST_F(CoverageDialog, TakesADecimalComma)
{
    type("rmax", "12,5");
    type("step", "0,5");
    click("apply");
    EXPECT_EQ(network.coverage.rangemax, 12.5F);
    EXPECT_EQ(network.coverage.azstep, 0.5F);
}

TEST_F(CoverageDialog, ARangeBelowTheOtherKeepsItsDistance)
{
    type("rmin", "10");
    type("rmax", "5"); // below the other field
    EXPECT_EQ(text("rmax"), "10.1");
    type("rmax", "0"); // and below all bounds
    EXPECT_EQ(text("rmax"), "10.1");
    type("rmin", "0");
    EXPECT_EQ(text("rmin"), "0.1");
    click("apply");
    EXPECT_EQ(network.coverage.rangemax, 10.1F);
    EXPECT_EQ(network.coverage.rangemin, 0.1F);
}
