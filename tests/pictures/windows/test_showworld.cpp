#include "pictures/georeference.h"
#include "pictures/paint/cursor.h"
#include "pictures/paint/picturetest.h"
#include "pictures/windows/frmPic.h"
#include "pictures/windows/showworld.h"

#include <QApplication>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QTest>

class ShowWorld : public PictureTest
{
protected:
    void SetUp() override
    {
        PictureTest::SetUp();
        area.resize(800, 600);
        area.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&area));
        connectpicturewindows([this](QWidget* picture) { area.addSubWindow(picture); });
    }

    static const OpenPicture& world() { return *openpictures.front(); }
    QMdiSubWindow* frame() const { return area.subWindowList().front(); }

    QMdiArea area;
};

TEST_F(ShowWorld, OpensTheWholeEarthUnderItsName)
{
    showworld();
    ASSERT_EQ(openpictures.size(), 1U);
    EXPECT_EQ(world().caption, "Mappemonde");
    EXPECT_EQ(world().data.Filename, "Mappemonde");
    EXPECT_EQ(world().data.source, "Mappemonde");
    EXPECT_EQ(world().data.Pictype, pictype::map);
    EXPECT_THAT(world().data.lon, testing::ElementsAre(-180, 180, 180, -180));
    EXPECT_THAT(world().data.lat, testing::ElementsAre(90, 90, -90, -90));
    EXPECT_GE(world().data.scalewidth, 1440);
    EXPECT_EQ(world().data.scalewidth, 2 * world().data.scaleheight);
    ASSERT_TRUE(windowof(world()));
    EXPECT_EQ(windowof(world())->windowTitle(), QStringLiteral("Mappemonde"));
    EXPECT_TRUE(windowof(world())->isVisible());
    EXPECT_TRUE(picturenames().empty()) << "the world map is no picture of the network";
}

TEST_F(ShowWorld, ShowsTheImageOfTheEarth)
{
    showworld();
    float x = 0, y = 0;
    ASSERT_TRUE(ll2pic(world().data, 25, 25, x, y)); // the Sahara
    const QColor sand = world().surface.kept.pixelColor(static_cast<int>(x), static_cast<int>(y));
    EXPECT_GT(sand.red(), sand.blue());
    ASSERT_TRUE(ll2pic(world().data, -150, 10, x, y)); // the Pacific
    const QColor sea = world().surface.kept.pixelColor(static_cast<int>(x), static_cast<int>(y));
    EXPECT_GT(sea.blue(), sea.red());
}

TEST_F(ShowWorld, PutsTheCursorOnIt)
{
    movecursor(7.5F, 44.5F);
    showworld();
    EXPECT_TRUE(world().marks.Line1);
    EXPECT_TRUE(world().marks.Line2);
    float x = 0, y = 0;
    ASSERT_TRUE(ll2pic(world().data, 7.5F, 44.5F, x, y));
    EXPECT_EQ(world().marks.vertical.x1(), static_cast<int>(x));
    EXPECT_EQ(world().marks.horizontal.y1(), static_cast<int>(y));
}

TEST_F(ShowWorld, ThereIsOnlyOne)
{
    showworld();
    showworld();
    EXPECT_EQ(openpictures.size(), 1U);
    EXPECT_EQ(area.subWindowList().size(), 1);
}

TEST_F(ShowWorld, ComesOutOfItsIcon)
{
    showworld();
    frame()->showMinimized();
    showworld();
    EXPECT_FALSE(frame()->isMinimized());
}

TEST_F(ShowWorld, StaysAsLargeAsItIsWhenItIsNotAnIcon)
{
    showworld();
    frame()->showMaximized();
    showworld();
    EXPECT_TRUE(frame()->isMaximized());
}

TEST_F(ShowWorld, OpensAgainAfterItWasClosed)
{
    showworld();
    closepicture(*openpictures.front());
    showworld();
    EXPECT_EQ(openpictures.size(), 1U);
}
