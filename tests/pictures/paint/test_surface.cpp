#include "pictures/paint/surface.h"

#include <QPainter>

#include <gtest/gtest.h>

namespace
{

const QColor ink(10, 20, 30);

void dot(Surface& surface, int x, int y)
{
    surface.over.emplace_back([x, y](QPainter& painter) { painter.fillRect(x, y, 1, 1, ink); });
}

} // namespace

TEST(Surface, IsWhiteAtFirstAndNeverEmpty)
{
    Surface surface;
    resizesurface(surface, 0, -5);
    EXPECT_EQ(surface.width(), 1);
    EXPECT_EQ(surface.height(), 1);
    EXPECT_EQ(surfaceimage(surface).pixelColor(0, 0), QColor(Qt::white));
}

TEST(Surface, ErasingBringsTheKeptPictureBack)
{
    Surface surface;
    resizesurface(surface, 4, 4);
    dot(surface, 1, 1);
    EXPECT_EQ(surfaceimage(surface).pixelColor(1, 1), ink);
    EXPECT_EQ(surface.kept.pixelColor(1, 1), QColor(Qt::white));
    erase(surface);
    EXPECT_EQ(surfaceimage(surface).pixelColor(1, 1), QColor(Qt::white));
}

TEST(Surface, WhatIsKeptSurvivesErasing)
{
    Surface surface;
    resizesurface(surface, 4, 4);
    dot(surface, 1, 1);
    keep(surface);
    dot(surface, 2, 2);
    erase(surface);
    const QImage image = surfaceimage(surface);
    EXPECT_EQ(image.pixelColor(1, 1), ink);
    EXPECT_EQ(image.pixelColor(2, 2), QColor(Qt::white));
}

TEST(Surface, AStrokeLeavesThePainterAsItWas)
{
    Surface surface;
    resizesurface(surface, 8, 8);
    surface.over.emplace_back([](QPainter& painter) {
        painter.translate(3, 3);
        painter.setOpacity(0.1);
    });
    dot(surface, 1, 1);
    EXPECT_EQ(surfaceimage(surface).pixelColor(1, 1), ink);
}

TEST(Surface, TheDrawingIsSharpAtTwiceTheScale)
{
    Surface surface;
    resizesurface(surface, 4, 4);
    surface.kept.setPixelColor(2, 2, Qt::red);
    surface.over.emplace_back(
        [](QPainter& painter) { painter.fillRect(QRectF(1.5, 1, 0.5, 1), ink); });
    QImage screen(8, 8, QImage::Format_RGB32);
    QPainter painter(&screen);
    painter.scale(2, 2);
    paintsurface(surface, painter);
    painter.end();
    EXPECT_EQ(screen.pixelColor(2, 2), QColor(Qt::white));
    EXPECT_EQ(screen.pixelColor(3, 2), ink);
    for (const QPoint at : {QPoint(4, 4), QPoint(5, 5)})
        EXPECT_EQ(screen.pixelColor(at), QColor(Qt::red));
    EXPECT_EQ(screen.pixelColor(6, 5), QColor(Qt::white));
}
