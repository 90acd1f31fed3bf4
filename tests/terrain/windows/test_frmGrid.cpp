#include "base/operation.h"
#include "coordinates/geosys.h"
#include "terrain/mapgrid.h"
#include "terrain/windows/frmGrid.h"
#include "terrain/windows/mapwindows.h"

#include <QLabel>
#include <QPushButton>
#include <QTest>

#include <gmock/gmock.h>
#include <memory>

namespace
{
double clocktime;

/// A window that follows a cursor as the program's does.
class FrmGrid : public testing::Test
{
protected:
    FrmGrid() : realtime(timeofday)
    {
        geosys = GeodeticSystem();
        clocktime += 1000; // past the last refresh of the test before
        timeofday = [] { return clocktime; };
        mapgrid = MapGrid();
        allocatemap(mapgrid, 11, 9);
        for (int row = 0; row < 9; ++row)
            for (int column = 0; column < 11; ++column)
                mapgrid.at(column, row) = static_cast<std::int16_t>(100 * column + row);
        mapgrid.maplon = {1, 2, 2, 1};
        mapgrid.maplat = {46, 46, 45.5F, 45.5F};
        mapwindowhooks.cursorposition = [this](float& atlon, float& atlat) {
            atlon = lon;
            atlat = lat;
        };
        mapwindowhooks.cursorcell = [this](int& column, int& row) {
            column = x;
            row = y;
        };
        mapwindowhooks.movecursor = [this](float tolon, float tolat) { move(tolon, tolat); };
        mapwindowhooks.picturepiece = [this](float, float, int pixels, int side) {
            ++pieces;
            EXPECT_EQ(pixels, 50);
            QImage image(side, side, QImage::Format_RGB32);
            image.fill(Qt::blue);
            return image;
        };
    }
    ~FrmGrid() override
    {
        mapwindowhooks = {};
        timeofday = realtime;
    }

    void open()
    {
        grid = std::make_unique<frmGrid>();
        move(1.3F, 45.75F);
        grid->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(grid.get()));
    }
    void move(float tolon, float tolat)
    {
        lon = tolon;
        lat = tolat;
        float column = 0;
        float row = 0;
        float height = 0;
        if (maplookup(lon, lat, column, row, height)) {
            x = static_cast<int>(column);
            y = static_cast<int>(row);
        }
        grid->showcell(lon, lat, x, y);
    }
    std::string text(const char* name) const
    {
        return grid->findChild<QLabel*>(QString::fromLatin1(name))->text().toStdString();
    }
    QPushButton* zoombutton() const
    {
        return grid->findChild<QPushButton*>(QStringLiteral("zoombutton"));
    }
    QLabel* zoom() const { return grid->findChild<QLabel*>(QStringLiteral("zoom")); }

    double (*realtime)();
    std::unique_ptr<frmGrid> grid;
    float lon = 0, lat = 0;
    int x = 0, y = 0;
    int pieces = 0;
};
} // namespace

TEST_F(FrmGrid, ShowsTheCellsAroundTheCursor)
{
    open();
    EXPECT_EQ(grid->windowTitle(), QStringLiteral("Grille d'altitude (m)"));
    EXPECT_EQ(text("cell12"), "304");
    EXPECT_EQ(text("cell7"), "305");
    EXPECT_EQ(text("cell11"), "204");
    EXPECT_EQ(text("cell0"), "106");
    EXPECT_EQ(text("cell24"), "502");
    EXPECT_EQ(text("position"), "001°18'00\"E  45°45'00\"N");
    EXPECT_EQ(text("locator"), "JN05PR");
}

TEST_F(FrmGrid, ArrowKeysWalkTheCursorCellByCell)
{
    open();
    QTest::keyClick(grid.get(), Qt::Key_Right);
    EXPECT_EQ(text("cell12"), "404");
    EXPECT_EQ(lat, 45.75F);
    QTest::keyClick(grid.get(), Qt::Key_Up);
    EXPECT_EQ(text("cell12"), "405");
    EXPECT_NEAR(lon, 1.4F, 1e-6);
    QTest::keyClick(grid.get(), Qt::Key_Left);
    QTest::keyClick(grid.get(), Qt::Key_Left);
    QTest::keyClick(grid.get(), Qt::Key_Down);
    EXPECT_EQ(text("cell12"), "204");
}

TEST_F(FrmGrid, AnArrowKeyAtTheEdgeLeavesTheMap)
{
    open();
    move(2, 45.75F);
    QTest::keyClick(grid.get(), Qt::Key_Right);
    EXPECT_NEAR(lon, 2.1F, 1e-6);
    EXPECT_EQ(text("cell12"), "1004"); // the last cell on the map
    EXPECT_EQ(text("cell13"), "-");
}

TEST_F(FrmGrid, ADoubleClickMovesTheCursorToTheCell)
{
    open();
    QTest::mouseDClick(grid->findChild<QLabel*>(QStringLiteral("cell4")), Qt::LeftButton);
    EXPECT_EQ(text("cell12"), "506");
    EXPECT_NEAR(lon, 1.5F, 1e-6);
    EXPECT_NEAR(lat, 45.875F, 1e-6);
}

TEST_F(FrmGrid, TheButtonOpensAndClosesTheZoomPanel)
{
    open();
    EXPECT_EQ(zoombutton()->text(), QStringLiteral(">"));
    EXPECT_FALSE(zoom()->isVisible());
    const int closed = grid->sizeHint().width();
    QTest::mouseClick(zoombutton(), Qt::LeftButton);
    EXPECT_EQ(zoombutton()->text(), QStringLiteral("<"));
    EXPECT_TRUE(zoom()->isVisible());
    EXPECT_EQ(zoom()->size(), QSize(150, 150));
    EXPECT_GE(grid->sizeHint().width(), closed + 150);
    EXPECT_EQ(pieces, 1);
    EXPECT_FALSE(zoom()->pixmap(Qt::ReturnByValue).isNull());
    QTest::keyClick(zoombutton(), Qt::Key_Space);
    EXPECT_FALSE(zoom()->isVisible());
    EXPECT_EQ(zoombutton()->text(), QStringLiteral(">"));
}

TEST_F(FrmGrid, TheZoomPanelFollowsFourTimesASecond)
{
    open();
    zoombutton()->click();
    EXPECT_EQ(pieces, 1);
    for (int i = 0; i < 10; ++i)
        QTest::keyClick(zoombutton(), Qt::Key_Right);
    EXPECT_EQ(pieces, 1);
    clocktime += 0.26;
    EXPECT_TRUE(QTest::qWaitFor([this] { return pieces == 2; }, 2000)); // the last move is shown
    QTest::keyClick(zoombutton(), Qt::Key_Left);
    EXPECT_EQ(pieces, 2);
    zoombutton()->click();
}

TEST_F(FrmGrid, EscapeClosesItAndItsPlaceIsRemembered)
{
    open();
    grid->move(120, 90);
    const QPoint place = grid->frameGeometry().bottomRight();
    QTest::keyClick(grid.get(), Qt::Key_Escape);
    EXPECT_FALSE(grid->isVisible());
    open();
    EXPECT_EQ(grid->frameGeometry().bottomRight(), place);
}
