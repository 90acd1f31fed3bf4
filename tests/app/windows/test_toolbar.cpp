#include "app/windows/frmMain.h"
#include "app/windows/shelltest.h"
#include "app/windows/toolbar.h"
#include "base/operation.h"

#include <QAction>
#include <QFrame>
#include <QPainter>
#include <QSvgRenderer>
#include <QTest>

#include <gmock/gmock.h>

using testing::ElementsAreArray;

class ToolBarTest : public ShellTest
{
protected:
    void SetUp() override
    {
        start();
        window->resize(900, 500);
        QTest::qWait(1);
    }
    ToolButton& image(std::size_t i) { return *window->toolbar->buttons[i]; }
};

TEST_F(ToolBarTest, TipsAreTheCaptionsWithoutMarksAndDots)
{
    std::vector<std::string> tips;
    for (const ToolButton* button : window->toolbar->buttons)
        tips.push_back(button->toolTip().toStdString());
    EXPECT_THAT(
        tips,
        ElementsAreArray({"Nouveaux réseaux", "Ouvrir des réseaux", "Enregistrer les réseaux sous",
                          "Propriétés des réseaux", "Ouvrir une carte", "Enregistrer la carte sous",
                          "Propriétés de la carte", "Nouvelle image", "Ouvrir une image",
                          "Enregistrer l'image sous", "Propriétés de l'image", "Imprimer", "Copier",
                          "Coller", "Localisation GPS", "Propriétés des stations", "Lien radio",
                          "Montrer les réseaux", "Stop"}));
}

TEST_F(ToolBarTest, ImagesStandInGroupsWithASeparatorInEachGap)
{
    const int step = image(1).x() - image(0).x();
    std::size_t line = 0;
    for (std::size_t i = 0; i + 2 < window->toolbar->buttons.size(); ++i) {
        const int distance = image(i + 1).x() - image(i).x();
        const bool gap = i == 4 || i == 7 || i == 11 || i == 12 || i == 14;
        EXPECT_EQ(distance > step, gap) << "behind image " << i;
        if (gap) {
            const QFrame* separator = window->toolbar->separators[line++];
            EXPECT_GT(separator->x(), image(i).geometry().right());
            EXPECT_LT(separator->geometry().right(), image(i + 1).x());
        }
    }
    EXPECT_EQ(line, window->toolbar->separators.size());
}

TEST_F(ToolBarTest, OnlyStopStandsThereDuringAnOperation)
{
    EXPECT_FALSE(image(ToolBar::stopimage).isVisible());
    window->setbusy(true);
    for (std::size_t i = 0; i < ToolBar::stopimage; ++i)
        EXPECT_FALSE(image(i).isVisible()) << i;
    EXPECT_TRUE(image(ToolBar::stopimage).isVisible());
    for (const QFrame* line : window->toolbar->separators)
        EXPECT_FALSE(line->isVisible());
    window->setbusy(false);
    EXPECT_TRUE(image(0).isVisible());
    EXPECT_FALSE(image(ToolBar::stopimage).isVisible());
}

TEST_F(ToolBarTest, StopStaysInReachInANarrowWindow)
{
    window->resize(300, 300);
    QTest::qWait(1);
    window->setbusy(true);
    EXPECT_LE(image(ToolBar::stopimage).geometry().right(), window->toolbar->width());
    opbusy = 1;
    QTest::mouseClick(&image(ToolBar::stopimage), Qt::LeftButton);
    EXPECT_EQ(opbusy, 0);
    window->setbusy(false);
}

TEST_F(ToolBarTest, ActsWhenTheMouseIsReleasedOverTheImage)
{
    int count = 0;
    QObject::connect(window->action("mnuViewShowNets"), &QAction::triggered, [&] { ++count; });
    ToolButton& button = image(17);
    QTest::mousePress(&button, Qt::LeftButton);
    EXPECT_EQ(count, 0);
    QTest::mouseRelease(&button, Qt::LeftButton, {}, QPoint(200, 200));
    EXPECT_EQ(count, 0) << "released elsewhere";
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_EQ(count, 1);
}

TEST_F(ToolBarTest, ABevelFollowsTheMouseButton)
{
    ToolButton& button = image(0);
    const QImage idle = button.grab().toImage();
    QTest::mousePress(&button, Qt::LeftButton);
    const QImage pressed = button.grab().toImage();
    QTest::mouseRelease(&button, Qt::LeftButton, {}, QPoint(200, 200));
    EXPECT_NE(pressed, idle);
}

TEST_F(ToolBarTest, ImagesFollowTheirMenuEntries)
{
    EXPECT_FALSE(image(9).isEnabled()) << "no picture is open";
    window->action("mnuFileSavePic")->setEnabled(true);
    EXPECT_TRUE(image(9).isEnabled());
}

/// Share of the pixels that a drawing covers, and whether it stays within its edges.
static double covered(const QString& file, int side)
{
    QSvgRenderer drawing(file);
    EXPECT_TRUE(drawing.isValid()) << file.toStdString();
    EXPECT_EQ(drawing.defaultSize(), QSize(24, 24)) << file.toStdString();
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    drawing.render(&painter);
    painter.end();
    int count = 0;
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x)
            count += qAlpha(image.pixel(x, y)) > 0 ? 1 : 0;
    return double(count) / (side * side);
}

TEST_F(ToolBarTest, EveryImageHasADrawingOfItsOwn)
{
    std::vector<QImage> pictures;
    for (ToolButton* button : window->toolbar->buttons) {
        button->setEnabled(true);
        QImage picture(48, 48, QImage::Format_ARGB32_Premultiplied);
        picture.fill(Qt::transparent);
        picture.setDevicePixelRatio(1.6);
        button->render(&picture, QPoint(), QRegion(), QWidget::RenderFlags());
        for (const QImage& other : pictures)
            EXPECT_NE(picture, other) << button->toolTip().toStdString();
        pictures.push_back(picture);
    }
    for (const char* name : {"newnet", "stop", "gps", "link", "print"})
        for (int side : {24, 48})
            EXPECT_GT(
                covered(QStringLiteral(":/icons/toolbar/%1.svg").arg(QLatin1String(name)), side),
                0.2);
}
