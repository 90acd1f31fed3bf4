#include "app/windows/arrange.h"

#include <QMdiArea>
#include <QMdiSubWindow>
#include <QTest>

#include <gtest/gtest.h>

class Arrange : public testing::Test
{
protected:
    void SetUp() override
    {
        area.resize(601, 402);
        for (int i = 0; i < 3; ++i)
            frames.append(area.addSubWindow(new QWidget));
        area.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&area));
        for (QMdiSubWindow* frame : frames)
            frame->show();
        room = area.viewport()->size();
    }
    QMdiArea area;
    QList<QMdiSubWindow*> frames;
    QSize room;
};

TEST_F(Arrange, HorizontalStripsLieOneAboveTheOther)
{
    arrangewindows(area, Arrangement::horizontal);
    int top = 0;
    for (const QMdiSubWindow* frame : frames) {
        EXPECT_EQ(frame->geometry().topLeft(), QPoint(0, top));
        EXPECT_EQ(frame->width(), room.width());
        EXPECT_NEAR(frame->height(), room.height() / 3.0, 1);
        top += frame->height();
    }
    EXPECT_EQ(top, room.height());
}

TEST_F(Arrange, VerticalStripsStandSideBySide)
{
    frames[0]->showMaximized();
    arrangewindows(area, Arrangement::vertical);
    int left = 0;
    for (const QMdiSubWindow* frame : frames) {
        EXPECT_FALSE(frame->isMaximized());
        EXPECT_EQ(frame->geometry().topLeft(), QPoint(left, 0));
        EXPECT_EQ(frame->height(), room.height());
        left += frame->width();
    }
    EXPECT_EQ(left, room.width());
}

TEST_F(Arrange, StripsLeaveMinimisedWindowsAlone)
{
    frames[1]->showMinimized();
    const QRect icon = frames[1]->geometry();
    arrangewindows(area, Arrangement::horizontal);
    EXPECT_EQ(frames[1]->geometry(), icon);
    EXPECT_TRUE(frames[1]->isMinimized());
    EXPECT_EQ(frames[0]->y() + frames[0]->height(), frames[2]->y());
    EXPECT_LE(frames[2]->geometry().bottom(), icon.top());
}

TEST_F(Arrange, IconsStandInARowAtTheBottom)
{
    for (QMdiSubWindow* frame : frames)
        frame->showMinimized();
    frames[1]->move(50, 20);
    arrangewindows(area, Arrangement::icons);
    int left = 0;
    for (const QMdiSubWindow* frame : frames) {
        if (left > 0 && frame->x() == 0)
            left = 0; // the next row
        EXPECT_EQ(frame->x(), left);
        left += frame->width();
        EXPECT_LE(left, room.width());
    }
    EXPECT_EQ(frames[0]->geometry().bottom() + 1, room.height());
}

TEST_F(Arrange, CascadeShiftsEachWindowAndKeepsItsTitleInSight)
{
    arrangewindows(area, Arrangement::cascade);
    EXPECT_NE(frames[0]->pos(), frames[1]->pos());
    EXPECT_NE(frames[1]->pos(), frames[2]->pos());
}
