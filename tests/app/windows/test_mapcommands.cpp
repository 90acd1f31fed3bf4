#include "app/windows/frmMain.h"
#include "app/windows/shelltest.h"
#include "pictures/paint/cursor.h"
#include "pictures/paint/openpictures.h"
#include "terrain/mapgrid.h"

#include <QAction>
#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QTest>

class MapCommands : public ShellTest
{
protected:
    void SetUp() override { start(); }

    /// A map of slopes around 2 E 45 N with the cursor in its middle.
    void placemap()
    {
        mapgrid = MapGrid();
        mapgrid.record.maplon0 = 2;
        mapgrid.record.maplat0 = 45;
        mapgrid.record.mapsize = 20;
        allocatemap(mapgrid, 41, 41);
        for (int i = 0; i < 41 * 41; ++i)
            mapgrid.at(i % 41, i / 41) = static_cast<std::int16_t>(i);
        mapframe(mapgrid);
        movecursor(2, 45);
    }
    QWidget* dialog(const char* name) const
    {
        return window->findChild<QWidget*>(QString::fromLatin1(name), Qt::FindDirectChildrenOnly);
    }
    std::string middlecell() const
    {
        return dialog("frmGrid")
            ->findChild<QLabel*>(QStringLiteral("cell12"))
            ->text()
            .toStdString();
    }
};

TEST_F(MapCommands, TheGridFollowsTheCursorWhileItsMarkIsSet)
{
    placemap();
    EXPECT_EQ(dialog("frmGrid"), nullptr);
    choose("mnuViewGrid");
    ASSERT_NE(dialog("frmGrid"), nullptr);
    EXPECT_TRUE(dialog("frmGrid")->isVisible());
    EXPECT_EQ(middlecell(), std::to_string(20 * 41 + 20));
    movecursor(2, mapgrid.maplat[0]);
    EXPECT_EQ(middlecell(), std::to_string(40 * 41 + 20));
    QTest::keyClick(dialog("frmGrid"), Qt::Key_Down);
    EXPECT_EQ(cursor.y, 39);
    QTest::keyClick(dialog("frmGrid"), Qt::Key_Right);
    EXPECT_EQ(cursor.x, 21);
}

TEST_F(MapCommands, ClosingTheGridTakesItsMarkOff)
{
    placemap();
    choose("mnuViewGrid");
    EXPECT_TRUE(window->checked("mnuViewGrid"));
    QTest::keyClick(dialog("frmGrid"), Qt::Key_Escape);
    EXPECT_FALSE(window->checked("mnuViewGrid"));
    movecursor(2, 45);
    EXPECT_FALSE(dialog("frmGrid")->isVisible());
    choose("mnuViewGrid");
    EXPECT_TRUE(dialog("frmGrid")->isVisible());
    choose("mnuViewGrid");
    EXPECT_FALSE(dialog("frmGrid")->isVisible());
}

TEST_F(MapCommands, WalkingOffTheMapShowsInTheStatusLine)
{
    placemap();
    choose("mnuViewGrid");
    movecursor(mapgrid.maplon[2], 45);
    QTest::keyClick(dialog("frmGrid"), Qt::Key_Right);
    EXPECT_TRUE(label1().ends_with("<Hors des limites de la carte>")) << label1();
}

TEST_F(MapCommands, TheZoomPanelShowsTheActivePicture)
{
    placemap();
    OpenPicture* picture = openpic("", -1);
    picture->data.Pictype = pictype::map;
    picture->data.lon = mapgrid.maplon;
    picture->data.lat = mapgrid.maplat;
    resizepicture(*picture, 41, 41);
    picture->surface.kept.fill(QColor(10, 200, 30));
    choose("mnuViewGrid");
    auto* button = dialog("frmGrid")->findChild<QPushButton*>(QStringLiteral("zoombutton"));
    button->click();
    const auto* zoom = dialog("frmGrid")->findChild<QLabel*>(QStringLiteral("zoom"));
    const QImage shown = zoom->pixmap(Qt::ReturnByValue).toImage();
    ASSERT_FALSE(shown.isNull());
    EXPECT_EQ(shown.pixelColor(shown.width() / 2 + 20, shown.height() / 2 + 20),
              QColor(10, 200, 30));
    EXPECT_EQ(shown.pixelColor(0, 0), QColor(Qt::black)); // beyond the picture
    button->click();
}

TEST_F(MapCommands, ThePropertiesOpenOnce)
{
    placemap();
    choose("mnuFileMapPro");
    ASSERT_NE(dialog("frmMapPro"), nullptr);
    EXPECT_TRUE(dialog("frmMapPro")->isVisible());
    EXPECT_FALSE(dialog("frmMapPro")->isModal());
    QWidget* first = dialog("frmMapPro");
    choose("mnuFileMapPro");
    EXPECT_EQ(dialog("frmMapPro"), first);
    EXPECT_EQ(
        window->findChildren<QDialog*>(QStringLiteral("frmMapPro"), Qt::FindDirectChildrenOnly)
            .size(),
        1);
}

TEST_F(MapCommands, ABuiltMapIsDrawnInItsOwnPicture)
{
    placemap();
    mapname = path("bassin.map");
    const std::string picture = path("bassin.bmp");
    const auto before = openpictures.size();
    hooks.drawmap(picture);
    ASSERT_EQ(openpictures.size(), before + 1);
    OpenPicture* drawn = openpictures.back().get();
    EXPECT_EQ(drawn->surface.width(), 41);
    EXPECT_EQ(drawn->data.lon, mapgrid.maplon);
    allocatemap(mapgrid, 30, 20);
    hooks.drawmap(picture);
    EXPECT_EQ(openpictures.size(), before + 1);
    EXPECT_EQ(drawn->surface.width(), 30);
}
