#include "base/windows/undostack.h"
#include "netoverlay/windows/placemenu.h"
#include "pictures/windows/picturewindowtest.h"

#include <QDialog>
#include <QListWidget>
#include <QMenu>
#include <QTimer>

namespace
{

class PlaceMenuTest : public PictureWindowTest
{
protected:
    void SetUp() override
    {
        PictureWindowTest::SetUp();
        picturetoolmakers.clear();
        connectstationmouse();
        connectplacemenu();
        closepicture(*picture);
        picture = drawmap(nullptr, true);
        window = windowof(*picture);
        ASSERT_TRUE(QTest::qWaitForWindowExposed(window));
        surface = window->findChild<QWidget*>(QStringLiteral("surface"));
        selection = {};
    }
    void TearDown() override
    {
        if (QMenu* open = menu())
            open->close();
        QApplication::processEvents();
        selection = {};
        PictureWindowTest::TearDown();
    }

    void rightclick(const QPoint& at, Qt::KeyboardModifiers keys = {}) const
    {
        QTest::mouseClick(surface, Qt::RightButton, keys, at);
    }
    static QMenu* menu() { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); }
    static QAction* entry(const char* name)
    {
        return menu() == nullptr ? nullptr : menu()->findChild<QAction*>(QString::fromLatin1(name));
    }
    static void choose(const char* name)
    {
        QAction* action = entry(name);
        ASSERT_NE(action, nullptr) << name;
        QTest::mouseClick(menu(), Qt::LeftButton, {}, menu()->actionGeometry(action).center());
        QApplication::processEvents();
    }
    /// Drives the list of stations as soon as it is open.
    void driving(const std::function<void(QDialog&)>& drive)
    {
        auto* watch = new QTimer(surface);
        QObject::connect(watch, &QTimer::timeout, surface, [watch, drive] {
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (dialog == nullptr)
                return;
            watch->deleteLater();
            drive(*dialog);
        });
        watch->start(1);
    }
    static std::string caption(const char* name)
    {
        return entry(name)->text().remove(QLatin1Char('&')).toStdString();
    }
};

constexpr QPoint spot(50, 50); // 7.25 E, 44.75 N

} // namespace

TEST_F(PlaceMenuTest, PlacesTheNextStationThatHasNoPlace)
{
    station(1, 7.1F, 44.1F);
    unitat(2).enabled = 0;
    unitat(3).name.assign("R & D");
    rightclick(spot);
    ASSERT_NE(menu(), nullptr);
    EXPECT_EQ(entry("placehere")->text(), QStringLiteral("&Placer ici : R && D"));
    EXPECT_EQ(caption("placeother"), "Placer une autre station...");
    EXPECT_EQ(caption("cursorhere"), "Déplacer le curseur ici");
    choose("placehere");
    EXPECT_FLOAT_EQ(unitat(3).lon, 7.25F);
    EXPECT_FLOAT_EQ(unitat(3).lat, 44.75F);
    EXPECT_EQ(unitat(3).elevation, mapgrid.at(50, 150));
    EXPECT_TRUE(picture->marks.stations[3].visible);
    EXPECT_EQ(selection.curunit, 3);
    EXPECT_THAT(label2, testing::HasSubstr("R & D"));
    EXPECT_EQ(cursor.lon, 0) << "the cursor stays";
    EXPECT_EQ(undotext(), QStringLiteral("placer R & D"));
    undolast();
    EXPECT_EQ(unitat(3).lon, 0);
}

TEST_F(PlaceMenuTest, PlacesAnyStationFromTheList)
{
    station(1, 7.1F, 44.1F);
    rightclick(spot);
    driving([](QDialog& dialog) {
        auto* list = dialog.findChild<QListWidget*>();
        EXPECT_EQ(list->count(), 50);
        EXPECT_EQ(list->currentRow(), 1) << "the next one without a place";
        list->setCurrentRow(0);
        QTest::keyClick(&dialog, Qt::Key_Return);
    });
    choose("placeother");
    EXPECT_FLOAT_EQ(unitat(1).lon, 7.25F);
}

TEST_F(PlaceMenuTest, AListThatIsGivenUpPlacesNothing)
{
    const NetworkTables before = network;
    rightclick(spot);
    driving([](QDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    choose("placeother");
    EXPECT_TRUE(network == before);
}

TEST_F(PlaceMenuTest, MovesTheCursor)
{
    rightclick(spot);
    choose("cursorhere");
    EXPECT_FLOAT_EQ(cursor.lon, 7.25F);
    EXPECT_FLOAT_EQ(cursor.lat, 44.75F);
}

TEST_F(PlaceMenuTest, WithAllStationsPlacedTheOthersRemain)
{
    for (int i = 1; i <= MAXUNIT; ++i)
        station(i, 7.1F, 44.1F);
    rightclick(spot);
    EXPECT_FALSE(entry("placehere")->isEnabled());
    EXPECT_EQ(caption("placehere"), "Placer ici");
    EXPECT_TRUE(entry("placeother")->isEnabled());
}

TEST_F(PlaceMenuTest, StationsAndTheSelectionComeFirst)
{
    station(1, 7.25F, 44.75F);
    drawnets();
    answers = {Answer::no, Answer::no};
    rightclick(picture->marks.stations[1].label.center());
    EXPECT_EQ(menu(), nullptr);
    drag(QPoint(100, 100), QPoint(150, 150));
    rightclick(QPoint(120, 120));
    EXPECT_EQ(menu(), nullptr);
    EXPECT_THAT(questions,
                testing::ElementsAre("Déplacer la station à la position du curseur?",
                                     "Créer une image \"zoom\" à partir de la sélection?"));
    rightclick(QPoint(200, 20));
    EXPECT_NE(menu(), nullptr);
    EXPECT_TRUE(picture->marks.Shape2) << "the selection stays";
}

TEST_F(PlaceMenuTest, ShiftStillExtendsTheSelection)
{
    drag(QPoint(100, 100), QPoint(150, 150));
    rightclick(QPoint(180, 170), Qt::ShiftModifier);
    EXPECT_EQ(menu(), nullptr);
    EXPECT_EQ(picture->marks.selection, QRect(100, 100, 80, 70));
}

TEST_F(PlaceMenuTest, PicturesWithoutStationsHaveNoMenu)
{
    picture->data.source = "Stereo";
    rightclick(spot);
    EXPECT_EQ(menu(), nullptr);
    picture->data.source = "carte";
    picture->data.Pictype = pictype::plain;
    rightclick(spot);
    EXPECT_EQ(menu(), nullptr);
}
