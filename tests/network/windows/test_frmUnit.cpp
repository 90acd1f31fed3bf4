#include "base/hooks.h"
#include "base/operation.h"
#include "base/paths.h"
#include "base/windows/choosers.h"
#include "base/windows/colourbutton.h"
#include "base/windows/undostack.h"
#include "coordinates/geosys.h"
#include "coordinates/windows/frmDMS.h"
#include "network/moveunit.h"
#include "network/unsaved.h"
#include "network/windows/frmCity.h"
#include "network/windows/frmUnit.h"
#include "support/tempfolder.h"
#include "terrain/mapgrid.h"
#include "terrain/mapproperties.h"

#include <QApplication>
#include <QCheckBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPointer>
#include <QPushButton>
#include <QSlider>
#include <QTest>
#include <QTimer>

#include <gmock/gmock.h>
#include <set>

using testing::ElementsAre;

class FrmUnit : public testing::Test
{
protected:
    void SetUp() override
    {
        resethooks();
        setprogramfolder(folder.path());
        network = defaulttables();
        selection = {};
        geosys = {};
        forgetedits();
        moved = false;
        opbusy = 0;
        mapgrid = {};
        unitwindowhooks = {};
        unitwindowhooks.cursorposition = [](float& lon, float& lat) {
            lon = 7.5F;
            lat = 45.25F;
        };
        unitwindowhooks.movecursor = [this](float lon, float lat) {
            done.push_back("cursor " + std::to_string(lon) + " " + std::to_string(lat));
        };
        unitwindowhooks.clearpictures = [this] { done.emplace_back("clear"); };
        unitwindowhooks.redrawstation = [this](int unit) {
            done.push_back("station " + std::to_string(unit) + " " + unitat(unit).name.text());
        };
        unitwindowhooks.drawnets = [this] { done.emplace_back("nets"); };
        unitwindowhooks.icons = [] {
            return std::vector<QImage>{QImage(16, 24, QImage::Format_RGB32),
                                       QImage(32, 32, QImage::Format_RGB32),
                                       QImage(48, 48, QImage::Format_RGB32)};
        };
        hooks.unitmoved = [this](int unit) { done.push_back("moved " + std::to_string(unit)); };
    }
    void TearDown() override
    {
        unitwindowhooks = {};
        askcolour = colourdialog;
        resethooks();
        network = defaulttables();
        selection = {};
        geosys = {};
        moved = false;
    }

    /// Opens the window, and forgets what was asked for until then.
    void open()
    {
        window = showunits(&main);
        ASSERT_TRUE(QTest::qWaitForWindowExposed(window));
        done.clear();
    }
    template <typename Widget> Widget* find(const char* name) const
    {
        return window->findChild<Widget*>(QString::fromLatin1(name));
    }
    std::string text(const char* label) const
    {
        return find<QLabel>(label)->text().remove(QLatin1Char('&')).toStdString();
    }
    std::string caption(const char* button) const
    {
        return find<QPushButton>(button)->text().remove(QLatin1Char('&')).toStdString();
    }
    QListWidget* list() const { return find<QListWidget>("list"); }
    std::string line(int unit) const { return list()->item(unit - 1)->text().toStdString(); }
    void click(const char* widget) const
    {
        QTest::mouseClick(find<QWidget>(widget), Qt::LeftButton);
    }
    void press(const char* box) const
    {
        auto* check = find<QCheckBox>(box);
        QTest::mouseClick(check, Qt::LeftButton, {}, QPoint(8, check->height() / 2));
    }
    void type(const char* field, const char* typed) const
    {
        auto* edit = find<QLineEdit>(field);
        edit->setFocus();
        edit->selectAll();
        for (const QChar letter : QString::fromUtf8(typed)) {
            QKeyEvent key(QEvent::KeyPress, 0, Qt::NoModifier, letter);
            QApplication::sendEvent(edit, &key);
        }
    }
    /// Drives the modal dialog that the next step opens.
    template <typename Dialog> void driving(const std::function<void(Dialog&)>& drive)
    {
        QTimer::singleShot(0, &main, [drive] {
            auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            drive(*dialog);
        });
    }
    static Unit& place(int unit, float lon, float lat)
    {
        unitat(unit).lon = lon;
        unitat(unit).lat = lat;
        return unitat(unit);
    }

    TempFolder folder;
    QWidget main;
    QPointer<frmUnit> window;
    std::vector<std::string> done; ///< what the window asked of the pictures
};

TEST_F(FrmUnit, OpensOnTheCurrentStationOverClearPictures)
{
    selection.curunit = 3;
    place(3, -73.25F, 45.5F).elevation = 120.5F;
    unitat(3).name.assign("Mont Royal");
    window = showunits(&main);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window));
    EXPECT_THAT(done, ElementsAre("clear"));
    EXPECT_EQ(window->windowTitle(), QStringLiteral("Propriétés des stations"));
    EXPECT_EQ(list()->count(), 50);
    EXPECT_EQ(line(2), "Station 02");
    EXPECT_EQ(list()->currentRow(), 2);
    EXPECT_EQ(find<QLineEdit>("name")->text(), QStringLiteral("Mont Royal"));
    EXPECT_EQ(find<QLineEdit>("elevation")->text(), QStringLiteral("120.5"));
    EXPECT_TRUE(find<QCheckBox>("enabled")->isChecked());
    EXPECT_FALSE(find<QCheckBox>("transparent")->isChecked());
    EXPECT_EQ(find<ColourButton>("forecolour")->colour(), 0xFFFFFF);
    EXPECT_EQ(text("position"), "073°15'00\"O 45°30'00\"N");
    EXPECT_EQ(text("locator"), "FN35JM");
}

TEST_F(FrmUnit, HoldsTheCurrentStationWithinTheTable)
{
    selection.curunit = 0;
    open();
    EXPECT_EQ(selection.curunit, 1);
    window->close();
    selection.curunit = 77;
    open();
    EXPECT_EQ(selection.curunit, 50);
}

TEST_F(FrmUnit, IsNeverModalAndThereIsOne)
{
    open();
    EXPECT_FALSE(window->isModal());
    selection.curunit = 7;
    EXPECT_EQ(showunits(&main), window);
    EXPECT_EQ(list()->currentRow(), 6);
}

TEST_F(FrmUnit, EachKeystrokeInTheNameRedrawsTheStation)
{
    open();
    type("name", "Été");
    EXPECT_THAT(done, ElementsAre("station 1 É", "station 1 Ét", "station 1 Été"));
    EXPECT_EQ(unitat(1).name.text(), "Été");
    EXPECT_EQ(line(1), "Été");
    EXPECT_TRUE(netedited);
}

TEST_F(FrmUnit, ANameHasTwentyCharacters)
{
    open();
    type("name", "abcdefghijklmnopqrstuvwxyz");
    EXPECT_EQ(unitat(1).name.text(), "abcdefghijklmnopqrst");
    type("name", "Virgule, et \"guillemets\"");
    EXPECT_EQ(unitat(1).name.text(), "Virgule, et \"guillem");
}

TEST_F(FrmUnit, TheAltitudeIsHeldWithinItsBounds)
{
    open();
    const struct {
        const char* typed;
        float held;
        bool red;
    } cases[] = {{"-999", -999, false},  {"9999", 9999, false}, {"10000", 9999, true},
                 {"-1000", -999, true},  {"1e308", 9999, true}, {"nan", 0, false},
                 {"12.5", 12.5F, false}, {"", 0, false},        {"x", 0, false}};
    const QColor black = find<QLineEdit>("elevation")->palette().color(QPalette::Text);
    for (const auto& c : cases) {
        find<QLineEdit>("elevation")->clear();
        type("elevation", c.typed);
        EXPECT_EQ(unitat(1).elevation, c.held) << c.typed;
        EXPECT_EQ(find<QLineEdit>("elevation")->palette().color(QPalette::Text) != black, c.red)
            << c.typed;
        EXPECT_EQ(find<QLineEdit>("elevation")->text(), QString::fromUtf8(c.typed));
    }
}

TEST_F(FrmUnit, LinksFollowATypedAltitudeOnceItsFieldIsLeft)
{
    open();
    type("elevation", "300");
    EXPECT_FALSE(moved);
    QTest::keyClick(find<QLineEdit>("elevation"), Qt::Key_Tab);
    QApplication::processEvents();
    EXPECT_TRUE(moved);
}

TEST_F(FrmUnit, AFieldIsOneActionWhichEndsWhenItIsLeft)
{
    open();
    type("name", "Nord");
    EXPECT_EQ(undotext(), QString());
    QTest::keyClick(find<QLineEdit>("name"), Qt::Key_Tab);
    EXPECT_EQ(undotext(), QStringLiteral("renommer Station 01"));
    type("elevation", "300");
    window->choose(2);
    EXPECT_EQ(undotext(), QStringLiteral("changer l'altitude de Nord"));
    EXPECT_EQ(undostack().count(), 2);
    undolast();
    EXPECT_EQ(unitat(1).elevation, 0);
    EXPECT_EQ(unitat(1).name.text(), "Nord");
    undolast();
    window->refill();
    EXPECT_EQ(line(1), "Station 01");
}

TEST_F(FrmUnit, WhatHappensAtOnceIsAnActionOfItsOwn)
{
    const NetworkTables before = network;
    open();
    press("enabled");
    EXPECT_EQ(undotext(), QStringLiteral("désactiver Station 01"));
    press("transparent");
    EXPECT_EQ(undotext(), QStringLiteral("changer l'étiquette de Station 01"));
    click("gotocursor");
    EXPECT_EQ(undotext(), QStringLiteral("déplacer Station 01"));
    click("undo");
    EXPECT_EQ(undotext(), QStringLiteral("défaire Station 01"));
    EXPECT_EQ(undostack().count(), 4);
    for (int i = 0; i < 4; ++i)
        undolast();
    EXPECT_TRUE(network == before);
}

TEST_F(FrmUnit, ClosingEndsTheActionUnderWay)
{
    open();
    type("name", "Nord");
    QTest::keyClick(window, Qt::Key_Escape);
    EXPECT_EQ(undotext(), QStringLiteral("renommer Station 01"));
}

TEST_F(FrmUnit, LookingAtStationsIsNoAction)
{
    open();
    for (int unit = 1; unit <= MAXUNIT; ++unit)
        window->choose(unit);
    EXPECT_EQ(undostack().count(), 0);
}

TEST_F(FrmUnit, EnablingAStationRedrawsTheNets)
{
    open();
    press("enabled");
    EXPECT_EQ(unitat(1).enabled, 0);
    EXPECT_FALSE(find<QWidget>("sample")->isEnabled());
    EXPECT_EQ(done.back(), "nets");
    press("enabled");
    EXPECT_EQ(unitat(1).enabled, -1);
    EXPECT_TRUE(find<QWidget>("sample")->isEnabled());
}

TEST_F(FrmUnit, TheSampleShowsTheLabel)
{
    unitat(1).forecolour = 0x0000FF; // red
    unitat(1).backcolour = 0xFF0000; // blue
    open();
    const auto blues = [this] {
        const QImage image = find<QWidget>("sample")->grab().toImage();
        int count = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                count += image.pixelColor(x, y) == QColor(0, 0, 255) ? 1 : 0;
        return count;
    };
    EXPECT_GT(blues(), 100);
    press("transparent");
    EXPECT_EQ(unitat(1).transparent, -1);
    EXPECT_EQ(blues(), 0);
    press("transparent");
    press("enabled");
    EXPECT_EQ(blues(), 0) << "greyed";
}

TEST_F(FrmUnit, ColoursComeFromTheColourDialog)
{
    open();
    askcolour = [](const QColor& start, QWidget*) {
        EXPECT_EQ(start, QColor(Qt::white));
        return std::optional(QColor(1, 2, 3));
    };
    click("forecolour");
    EXPECT_EQ(unitat(1).forecolour, 0x030201);
    askcolour = [](const QColor&, QWidget*) { return std::optional(QColor(255, 0, 0)); };
    click("backcolour");
    EXPECT_EQ(unitat(1).backcolour, 0x0000FF);
    EXPECT_THAT(done, ElementsAre("station 1 Station 01", "station 1 Station 01"));
}

TEST_F(FrmUnit, TheIconBarChoosesAnIconOrNone)
{
    open();
    auto* bar = find<QSlider>("iconbar");
    EXPECT_EQ(bar->maximum(), 3);
    EXPECT_EQ(bar->value(), 1) << "a new network shows the first icon";
    EXPECT_EQ(text("iconcaption"), "Icône 16x24 pixels");
    bar->setFocus();
    QTest::keyClick(bar, Qt::Key_Right);
    EXPECT_EQ(network.icon(1), 1);
    EXPECT_EQ(text("iconcaption"), "Icône 32x32 pixels");
    QTest::keyClick(bar, Qt::Key_Home);
    EXPECT_EQ(network.icon(1), noicon);
    EXPECT_EQ(text("iconcaption"), "Aucun icône");
}

TEST_F(FrmUnit, AnIconAboveTheListShowsAsTheLastAndStays)
{
    network.icon(1) = 200;
    open();
    EXPECT_EQ(find<QSlider>("iconbar")->value(), 3);
    EXPECT_EQ(network.icon(1), 200);
}

TEST_F(FrmUnit, WithoutIconsTheBarOffersNoneOnly)
{
    unitwindowhooks.icons = [] { return std::vector<QImage>(); };
    open();
    EXPECT_EQ(find<QSlider>("iconbar")->maximum(), 0);
    EXPECT_EQ(text("iconcaption"), "Aucun icône");
    EXPECT_EQ(network.icon(1), 0);
}

TEST_F(FrmUnit, ChoosingAStationShowsItAndChangesNothing)
{
    place(2, 7, 45);
    unitat(2).name.assign("Deux");
    const NetworkTables before = network;
    open();
    QTest::mouseClick(list()->viewport(), Qt::LeftButton, {},
                      list()->visualItemRect(list()->item(1)).center());
    EXPECT_EQ(selection.curunit, 2);
    EXPECT_EQ(find<QLineEdit>("name")->text(), QStringLiteral("Deux"));
    EXPECT_EQ(text("position"), "007°00'00\"E 45°00'00\"N");
    EXPECT_TRUE(network == before);
    EXPECT_THAT(done, testing::IsEmpty());
}

TEST_F(FrmUnit, UndoBringsBackTheStationAsItWasSelected)
{
    place(1, 7, 45).name.assign("Avant");
    const Unit before = unitat(1);
    open();
    type("name", "Après");
    type("elevation", "12");
    press("transparent");
    done.clear();
    click("undo");
    EXPECT_TRUE(unitat(1) == before);
    EXPECT_EQ(find<QLineEdit>("name")->text(), QStringLiteral("Avant"));
    EXPECT_EQ(line(1), "Avant");
    EXPECT_THAT(done, ElementsAre("station 1 Avant"));
    click("gotocursor");
    window->choose(2);
    window->choose(1); // the moved station is what comes back from now on
    click("undo");
    EXPECT_EQ(unitat(1).lon, 7.5F);
}

TEST_F(FrmUnit, UndoTakesAMovedStationBack)
{
    place(1, 7, 45);
    open();
    click("gotocursor");
    done.clear();
    click("undo");
    EXPECT_EQ(unitat(1).lon, 7);
    EXPECT_THAT(done, ElementsAre("moved 1"));
    EXPECT_TRUE(moved);
}

TEST_F(FrmUnit, TheCursorGoesToTheStation)
{
    place(1, 7.25F, 45.5F);
    open();
    EXPECT_EQ(caption("gotostation"), "Placer le curseur à la position de la station");
    click("gotostation");
    EXPECT_THAT(done, ElementsAre("cursor 7.250000 45.500000"));
}

TEST_F(FrmUnit, TheStationGoesToTheCursor)
{
    unitat(1).elevation = 77;
    open();
    EXPECT_EQ(caption("gotocursor"), "Placer la station à la position du curseur");
    click("gotocursor");
    EXPECT_EQ(unitat(1).lon, 7.5F);
    EXPECT_EQ(unitat(1).lat, 45.25F);
    EXPECT_EQ(unitat(1).elevation, 0) << "off the map";
    EXPECT_EQ(text("position"), "007°30'00\"E 45°15'00\"N");
    EXPECT_EQ(find<QLineEdit>("elevation")->text(), QStringLiteral("0"));
    EXPECT_THAT(done, ElementsAre("moved 1"));
    EXPECT_TRUE(moved);
}

TEST_F(FrmUnit, AMovedStationIsTheOneInView)
{
    open();
    window->choose(5);
    selection.curunit = 9; // another window has its own choice
    click("gotocursor");
    EXPECT_EQ(unitat(5).lon, 7.5F);
    EXPECT_EQ(unitat(9).lon, 0);
}

TEST_F(FrmUnit, APositionIsTyped)
{
    place(1, 7, 45);
    open();
    EXPECT_EQ(caption("enterposition"), "Entrer LAT LON ou QRA");
    driving<frmDMS>([](frmDMS& dialog) {
        auto* degrees = dialog.findChild<QLineEdit*>(QStringLiteral("londegrees"));
        EXPECT_EQ(degrees->text(), QStringLiteral("007"));
        degrees->setText(QStringLiteral("8"));
        QTest::mouseClick(dialog.findChild<QPushButton*>(QStringLiteral("apply")), Qt::LeftButton);
    });
    click("enterposition");
    EXPECT_EQ(unitat(1).lon, 8);
    EXPECT_EQ(unitat(1).lat, 45);
}

TEST_F(FrmUnit, APositionThatIsGivenUpLeavesTheStationAndItsAltitude)
{
    place(1, 7, 45).elevation = 500;
    open();
    driving<frmDMS>([](frmDMS& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    click("enterposition");
    EXPECT_EQ(unitat(1).elevation, 500);
    EXPECT_THAT(done, testing::IsEmpty());
}

TEST_F(FrmUnit, SaysMgrsWithAGeodeticSystem)
{
    geosys.name = "WGS 1984";
    open();
    EXPECT_EQ(caption("enterposition"), "Entrer LAT LON ou MGRS");
}

TEST_F(FrmUnit, AStationIsImportedFromTheGazetteer)
{
    folder.makefile("cities.dat", "header\r\n\"0\",45.5,73.5,\"Laval\"\r\n");
    mapedit = {};
    mapedit.maplon0 = 12;
    open();
    driving<frmCity>([](frmCity& dialog) {
        QTest::keyClicks(dialog.findChild<QLineEdit*>(QStringLiteral("search")),
                         QStringLiteral("laval"));
        QTest::mouseClick(dialog.findChild<QPushButton*>(QStringLiteral("apply")), Qt::LeftButton);
    });
    click("import");
    EXPECT_EQ(unitat(1).name.text(), "Laval");
    EXPECT_EQ(line(1), "Laval");
    EXPECT_EQ(find<QLineEdit>("name")->text(), QStringLiteral("Laval"));
    EXPECT_EQ(unitat(1).lon, -73.5F);
    EXPECT_EQ(unitat(1).lat, 45.5F);
    EXPECT_EQ(mapedit.maplon0, 12) << "the map under edit beside this window keeps its centre";
}

TEST_F(FrmUnit, ImportingNothingDoesNothing)
{
    folder.makefile("cities.dat", "header\r\n\"0\",45.5,73.5,\"Laval\"\r\n");
    const NetworkTables before = network;
    open();
    driving<frmCity>([](frmCity& dialog) {
        QTest::mouseClick(dialog.findChild<QPushButton*>(QStringLiteral("cancel")), Qt::LeftButton);
    });
    click("import");
    EXPECT_TRUE(network == before);
    EXPECT_THAT(done, testing::IsEmpty());
}

TEST_F(FrmUnit, AStationIsAddedToTheGazetteerAfterAQuestion)
{
    place(1, -73.5F, 45.25F).name.assign("Poste");
    open();
    std::vector<std::string> asked;
    Answer answer = Answer::no;
    hooks.askuser = [&](const Question& question) {
        asked.push_back(question.text);
        return answer;
    };
    click("export");
    EXPECT_THAT(asked, ElementsAre("Poste\nAjouter la station à cities.dat?"));
    EXPECT_EQ(folder.content("cities.dat"), "");
    answer = Answer::yes;
    click("export");
    EXPECT_THAT(folder.content("cities.dat"),
                testing::HasSubstr("\"FFFFFF\",45.25,73.5,\"Poste\"\r\n"));
}

TEST_F(FrmUnit, ClosingRedrawsTheNets)
{
    for (const bool byescape : {false, true}) {
        open();
        if (byescape)
            QTest::keyClick(window, Qt::Key_Escape);
        else
            click("apply");
        EXPECT_EQ(unitwindow(&main), nullptr);
        EXPECT_THAT(done, ElementsAre("nets"));
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_TRUE(window.isNull());
    }
}

TEST_F(FrmUnit, EnterInAFieldKeepsTheWindowOpen)
{
    open();
    QTest::keyClick(find<QLineEdit>("name"), Qt::Key_Return);
    EXPECT_TRUE(window->isVisible());
}

TEST_F(FrmUnit, FollowsAStationThatIsMovedOnAPicture)
{
    open();
    place(1, 6, 44);
    window->followstation(1);
    EXPECT_EQ(text("position"), "006°00'00\"E 44°00'00\"N");
    selection.curunit = 4; // a station was placed by a picture's menu
    window->followstation(4);
    EXPECT_EQ(window->unit(), 4);
}

TEST_F(FrmUnit, StationsWithoutAPlaceAreGrey)
{
    place(2, 7, 45);
    open();
    EXPECT_NE(list()->item(0)->foreground(), list()->item(1)->foreground());
    click("gotocursor");
    EXPECT_EQ(list()->item(0)->foreground(), list()->item(1)->foreground());
}

TEST_F(FrmUnit, EveryShortcutLetterIsGivenOnce)
{
    open();
    std::set<QChar> letters;
    const auto check = [&letters](const QString& text) {
        const auto at = text.indexOf(QLatin1Char('&'));
        ASSERT_GE(at, 0) << text.toStdString();
        EXPECT_TRUE(letters.insert(text.at(at + 1).toLower()).second) << text.toStdString();
    };
    for (const QAbstractButton* button : window->findChildren<QAbstractButton*>())
        if (!button->text().isEmpty())
            check(button->text());
    for (const QLabel* label : window->findChildren<QLabel*>())
        if (label->buddy() != nullptr)
            check(label->text());
    EXPECT_EQ(letters.size(), 15U);
}

TEST_F(FrmUnit, EveryFieldHasANameForReaders)
{
    open();
    for (const QWidget* field : window->findChildren<QWidget*>()) {
        if (field->focusPolicy() == Qt::NoFocus || field->parentWidget() == list())
            continue;
        const auto* button = qobject_cast<const QAbstractButton*>(field);
        const bool captioned = button != nullptr && !button->text().isEmpty();
        const auto labels = window->findChildren<QLabel*>();
        const bool labelled = std::any_of(labels.begin(), labels.end(),
                                          [field](const QLabel* l) { return l->buddy() == field; });
        EXPECT_TRUE(captioned || labelled || !field->accessibleName().isEmpty())
            << field->metaObject()->className() << " " << field->objectName().toStdString();
    }
}
