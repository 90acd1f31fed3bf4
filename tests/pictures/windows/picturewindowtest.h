#pragma once

#include "netoverlay/windows/stationmouse.h"
#include "pictures/paint/cursor.h"
#include "pictures/paint/picturetest.h"
#include "pictures/windows/frmPic.h"
#include "relief/paint/drawmap.h"

#include <QApplication>
#include <QPointer>
#include <QTest>

/// A picture of a map, 0.005 degrees a pixel, in its window, and a mouse on it.
class PictureWindowTest : public PictureTest
{
protected:
    void SetUp() override
    {
        PictureTest::SetUp();
        makemap(301, 201);
        connectpicturewindows([this](QWidget* made) {
            ++windowsmade;
            made->resize(400, 300);
        });
        picturetoolmakers.clear();
        connectstationmouse();
        picture = drawmap(nullptr, true);
        window = windowof(*picture);
        ASSERT_NE(window, nullptr);
        ASSERT_TRUE(QTest::qWaitForWindowExposed(window));
        surface = window->findChild<QWidget*>(QStringLiteral("surface"));
        cursor = {};
    }

    void TearDown() override
    {
        PictureTest::TearDown();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    /// A move of the mouse, with a button down or without.
    void move(const QPoint& at, Qt::MouseButtons buttons = Qt::NoButton) const
    {
        QMouseEvent event(QEvent::MouseMove, at, surface->mapToGlobal(QPointF(at)), Qt::NoButton,
                          buttons, Qt::NoModifier);
        QApplication::sendEvent(surface, &event);
    }

    void drag(const QPoint& from, const QPoint& to) const
    {
        QTest::mousePress(surface, Qt::LeftButton, {}, from);
        move(to, Qt::LeftButton);
        QTest::mouseRelease(surface, Qt::LeftButton, {}, to);
    }

    OpenPicture* picture = nullptr;
    QPointer<frmPic> window;
    QWidget* surface = nullptr;
    int windowsmade = 0;
};
