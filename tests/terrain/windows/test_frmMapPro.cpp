#include "base/hooks.h"
#include "base/operation.h"
#include "base/paint/colour.h"
#include "base/session.h"
#include "base/settings.h"
#include "coordinates/dmsfields.h"
#include "coordinates/geosys.h"
#include "terrain/mapgrid.h"
#include "terrain/mapproperties.h"
#include "terrain/windows/frmMapPro.h"
#include "terrain/windows/mapwindows.h"

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <gmock/gmock.h>
#include <memory>

namespace
{
class FrmMapPro : public testing::Test
{
protected:
    FrmMapPro()
    {
        resethooks();
        resetsettings();
        session = Session();
        geosys = GeodeticSystem();
        mapwindowhooks = {};
        mapname = "/maps/vallée.map";
        mapgrid = MapGrid();
        mapgrid.record.maplon0 = 1.5F;
        mapgrid.record.maplat0 = 42.25F;
        mapgrid.record.mapsize = 80;
        mapgrid.record.sources = 5;
        allocatemap(mapgrid, 400, 300);
    }
    ~FrmMapPro() override
    {
        mapwindowhooks = {};
        resethooks();
        opbusy = 0;
    }

    void open()
    {
        dialog = std::make_unique<frmMapPro>();
        dialog->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(dialog.get()));
    }
    template <typename Widget = QLineEdit> Widget* find(const char* name) const
    {
        auto* widget = dialog->findChild<Widget*>(QString::fromLatin1(name));
        EXPECT_NE(widget, nullptr) << name;
        return widget;
    }
    std::string text(const char* name) const { return find(name)->text().toStdString(); }
    std::string label(const char* name) const { return find<QLabel>(name)->text().toStdString(); }
    void type(const char* name, const char* typed) const
    {
        find(name)->selectAll();
        QTest::keyClicks(find(name), QString::fromUtf8(typed));
    }
    bool isred(const char* name) const
    {
        return find(name)->palette().color(QPalette::Text) ==
               readablered(QPalette().color(QPalette::Base));
    }
    void click(const char* name) const
    {
        ASSERT_TRUE(find<QPushButton>(name)->isEnabled()) << name;
        QTest::mouseClick(find<QPushButton>(name), Qt::LeftButton);
    }

    std::unique_ptr<frmMapPro> dialog;
};
} // namespace

TEST_F(FrmMapPro, OpensOnTheMapAsItIs)
{
    session.drvpath = {"/data/dted", "D", "/data"};
    writesetting("IGNMIS", true);
    open();
    EXPECT_EQ(dialog->windowTitle(), QStringLiteral("Propriétés de ..\\vallée.map"));
    EXPECT_EQ(text("lon"), "1.5");
    EXPECT_EQ(text("lat"), "42.25");
    EXPECT_EQ(text("width"), "400");
    EXPECT_EQ(text("height"), "300");
    EXPECT_EQ(text("size"), "80");
    EXPECT_EQ(text("kilometres"), "106.67");
    EXPECT_TRUE(find("kilometres")->isReadOnly());
    EXPECT_EQ(label("position"), "001°30'00\"E - 42°15'00\"N");
    EXPECT_EQ(label("locator"), "JN02RG");
    EXPECT_TRUE(label("corners").starts_with("Supérieur gauche\n000°51'"));
    EXPECT_TRUE(find<QCheckBox>("DTED")->isChecked());
    EXPECT_FALSE(find<QCheckBox>("GTOPO30")->isChecked());
    EXPECT_TRUE(find<QCheckBox>("TERRAIN")->isChecked());
    EXPECT_EQ(text("path0"), "/data/dted");
    EXPECT_EQ(text("path1"), "D");
    EXPECT_TRUE(find<QCheckBox>("ignore")->isChecked());
    EXPECT_EQ(find<QPushButton>("enterposition")->text(), QStringLiteral("Entrer LAT LON ou QRA"));
}

TEST_F(FrmMapPro, TakesDecimalCommas)
{
    open();
    type("lon", "7,5");
    type("lat", "44,25");
    type("size", "12,5");
    EXPECT_EQ(label("position"), "007°30'00\"E - 44°15'00\"N");
    EXPECT_FALSE(isred("lon"));
    EXPECT_EQ(mapedit.mapsize, 12.5F);
}

TEST_F(FrmMapPro, NamesAMapWithoutOne)
{
    mapname.clear();
    geosys.name = "WGS 84";
    open();
    EXPECT_EQ(mapname, "Nouveau.map");
    EXPECT_EQ(dialog->windowTitle(), QStringLiteral("Propriétés de ..\\Nouveau.map"));
    EXPECT_EQ(find<QPushButton>("enterposition")->text(), QStringLiteral("Entrer LAT LON ou MGRS"));
}

TEST_F(FrmMapPro, FieldsOutOfBoundsTurnRedAndAreHeld)
{
    struct Bound {
        const char* field;
        const char* inside;
        const char* outside;
        std::function<double()> value;
        double held;
    };
    open();
    const auto lon = [] { return static_cast<double>(mapedit.maplon0); };
    const auto lat = [] { return static_cast<double>(mapedit.maplat0); };
    const auto size = [] { return static_cast<double>(mapedit.mapsize); };
    const auto width = [this] { return double{1} * dialog->W; };
    const auto height = [this] { return double{1} * dialog->H; };
    for (const Bound& bound :
         {Bound{"lon", "-180", "-180.1", lon, -180}, Bound{"lon", "179.9", "180", lon, 179.99999},
          Bound{"lat", "89", "89.1", lat, 89}, Bound{"lat", "-89", "-90", lat, -89},
          Bound{"width", "10", "9", width, 10}, Bound{"width", "2000", "2001", width, 2000},
          Bound{"height", "10", "abc", height, 10}, Bound{"height", "2000", "3000", height, 2000},
          Bound{"size", "0.5", "0.4", size, 1}, Bound{"size", "19900", "19901", size, 19900}}) {
        type(bound.field, bound.outside);
        EXPECT_TRUE(isred(bound.field)) << bound.field << " " << bound.outside;
        EXPECT_NEAR(bound.value(), bound.held, 1e-4) << bound.field << " " << bound.outside;
        EXPECT_EQ(text(bound.field), bound.outside);
        type(bound.field, bound.inside);
        EXPECT_FALSE(isred(bound.field)) << bound.field << " " << bound.inside;
    }
}

TEST_F(FrmMapPro, ASizeUnderOneKilometreStandsAsTypedAndCountsAsOne)
{
    open();
    type("size", "1");
    const std::string corners = label("corners");
    type("size", "0.6");
    EXPECT_EQ(text("size"), "0.6");
    EXPECT_FALSE(isred("size"));
    EXPECT_EQ(text("kilometres"), "0.80");
    EXPECT_EQ(label("corners"), corners);
}

TEST_F(FrmMapPro, EveryChangeMovesTheDerivedTexts)
{
    open();
    type("width", "300");
    EXPECT_EQ(text("kilometres"), "80.00");
    const std::string corners = label("corners");
    type("lon", "-72.5");
    EXPECT_EQ(label("position"), "072°30'00\"O - 42°15'00\"N");
    EXPECT_EQ(label("locator"), "FN32SG");
    EXPECT_NE(label("corners"), corners);
}

TEST_F(FrmMapPro, PathsGoToTheSessionAtOnce)
{
    open();
    type("path2", "/terrain");
    EXPECT_EQ(session.drvpath[2], "/terrain");
    EXPECT_EQ(session.drvpath[0], "C");
}

TEST_F(FrmMapPro, TakesTheCursorsPosition)
{
    mapwindowhooks.cursorposition = [](float& lon, float& lat) {
        lon = 7.25F;
        lat = -3.5F;
    };
    open();
    click("usecursor");
    EXPECT_EQ(text("lon"), "7.25");
    EXPECT_EQ(text("lat"), "-3.5");
    EXPECT_EQ(label("position"), "007°15'00\"E - 03°30'00\"S");
}

TEST_F(FrmMapPro, TakesAPlaceUnlessTheProgramIsBusy)
{
    int asked = 0;
    mapwindowhooks.choosecity = [&asked](QWidget*) {
        ++asked;
        mapedit.maplon0 = 2.5F;
    };
    open();
    opbusy = 1;
    click("city");
    EXPECT_EQ(asked, 0);
    opbusy = 0;
    click("city");
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(text("lon"), "2.5");
}

TEST_F(FrmMapPro, TakesATypedPosition)
{
    open();
    QTimer::singleShot(0, [] {
        QWidget* entry = QApplication::activeModalWidget();
        ASSERT_NE(entry, nullptr);
        entry->findChild<QLineEdit*>(QStringLiteral("londegrees"))->setText(QStringLiteral("12"));
        entry->findChild<QPushButton*>(QStringLiteral("apply"))->click();
    });
    click("enterposition");
    EXPECT_EQ(text("lon"), "12.5");
    EXPECT_EQ(text("lat"), "42.25");
}

TEST_F(FrmMapPro, ButtonsWithoutAProcedureAreDisabled)
{
    open();
    EXPECT_FALSE(find<QPushButton>("world")->isEnabled());
    EXPECT_FALSE(find<QPushButton>("city")->isEnabled());
}

TEST_F(FrmMapPro, AppliesABuildAndCloses)
{
    session.drvpath.fill("/no/such");
    std::string asked;
    hooks.askuser = [&asked](const Question& question) {
        asked = question.text;
        return Answer::ignore;
    };
    std::string status;
    hooks.setlabel2 = [&status](const std::string& text) { status = text; };
    open();
    type("width", "20");
    type("height", "30");
    type("lon", "10.5");
    type("lat", "45.5");
    type("size", "50");
    for (const char* name : {"DTED", "GTOPO30"})
        find<QCheckBox>(name)->setChecked(false);
    click("apply");
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(asked, "Fichier TERRAIN non trouvé.\n/no/such/terrain/m011/e011n45.sd_");
    EXPECT_EQ(status, "1 cellule manquante");
    EXPECT_EQ(mapgrid.width, 20);
    EXPECT_EQ(mapgrid.height, 30);
    EXPECT_EQ(mapgrid.record.maplon0, 10.5F);
    EXPECT_EQ(mapgrid.record.sources, 4);
    EXPECT_EQ(getsetting("DRV2", ""), "/no/such");
    bool ignoring = true;
    readsetting("IGNMIS", true, ignoring);
    EXPECT_FALSE(ignoring);
}

TEST_F(FrmMapPro, StaysOpenWithoutASource)
{
    open();
    for (const char* name : {"DTED", "GTOPO30", "TERRAIN"})
        find<QCheckBox>(name)->setChecked(false);
    type("width", "20");
    click("apply");
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(mapgrid.width, 400);
}

TEST_F(FrmMapPro, CancelAndEscapeDropWhatWasTyped)
{
    open();
    type("lon", "99");
    click("cancel");
    EXPECT_FALSE(dialog->isVisible());
    open();
    EXPECT_EQ(text("lon"), "1.5");
    QTest::keyClick(dialog.get(), Qt::Key_Escape);
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(mapgrid.record.maplon0, 1.5F);
}
