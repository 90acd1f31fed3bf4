#include "app/windows/frmMain.h"
#include "app/windows/shelltest.h"
#include "pictures/paint/openpictures.h"
#include "pictures/windows/frmPic.h"

#include <QApplication>
#include <QClipboard>
#include <QImage>
#include <QMimeData>
#include <QTest>

#include <array>

class Clipboard : public ShellTest
{
protected:
    void SetUp() override
    {
        start();
        QApplication::clipboard()->clear();
    }
    /// A picture of 200 x 100 pixels over one degree, left half red.
    OpenPicture& placed()
    {
        addpicture("a.bmp");
        OpenPicture& picture = *openpictures.back();
        picture.data.Pictype = pictype::map;
        picture.data.lon = {7, 8, 8, 7};
        picture.data.lat = {45, 45, 44, 44};
        picture.data.source = "colline.map";
        for (int y = 0; y < 100; ++y)
            for (int x = 0; x < 100; ++x)
                picture.surface.kept.setPixelColor(x, y, Qt::red);
        return picture;
    }
    static std::string text() { return QApplication::clipboard()->text().toStdString(); }
    static void putimage(const QColor& colour, const char* beside = nullptr)
    {
        QImage image(30, 20, QImage::Format_RGB32);
        image.fill(colour);
        auto* content = new QMimeData;
        content->setImageData(image);
        if (beside)
            content->setText(QString::fromUtf8(beside));
        QApplication::clipboard()->setMimeData(content);
    }
};

TEST_F(Clipboard, TakesThePictureAndItsPlace)
{
    const OpenPicture& picture = placed();
    choose("mnuEditCopy");
    EXPECT_EQ(text(), "007.00000\t45.00000\t008.00000\t45.00000\t008.00000\t44.00000\t"
                      "007.00000\t44.00000\t01\tcolline.map\t");
    EXPECT_EQ(QApplication::clipboard()->image().convertToFormat(QImage::Format_RGB32),
              picture.surface.kept);
}

TEST_F(Clipboard, ASelectionIsDraggedCopiedByKeysAndPastedAsANewPicture)
{
    OpenPicture& picture = placed();
    frmPic* shown = windowof(picture);
    auto* surface = shown->findChild<QWidget*>(QStringLiteral("surface"));
    window->activate(shown);
    QTest::mousePress(surface, Qt::LeftButton, {}, QPoint(80, 20));
    QMouseEvent move(QEvent::MouseMove, QPointF(140, 60), surface->mapToGlobal(QPointF(140, 60)),
                     Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(surface, &move);
    QTest::mouseRelease(surface, Qt::LeftButton, {}, QPoint(140, 60));
    ASSERT_TRUE(picture.marks.Shape2);
    QTest::keyClick(surface, Qt::Key_C, Qt::ControlModifier);
    EXPECT_FALSE(picture.marks.Shape2);
    QTest::keyClick(surface, Qt::Key_V, Qt::ControlModifier | Qt::ShiftModifier);
    ASSERT_EQ(openpictures.size(), 2U);
    const OpenPicture& pasted = *openpictures.back();
    EXPECT_EQ(window->activepicture(), &pasted);
    EXPECT_EQ(pasted.data.source, "Selection");
    EXPECT_EQ(pasted.surface.kept.size(), QSize(60, 40));
    EXPECT_EQ(pasted.surface.kept.pixelColor(19, 0), QColor(Qt::red));
    EXPECT_EQ(pasted.surface.kept.pixelColor(20, 0), QColor(Qt::white));
    EXPECT_NEAR(pasted.data.lon[0], 7 + 80 / 199.0, 1e-5);
    EXPECT_NEAR(pasted.data.lat[2], 45 - 59 / 99.0, 1e-5);
}

TEST_F(Clipboard, WithoutAPictureCopyingEmptiesIt)
{
    putimage(Qt::blue);
    choose("mnuEditCopy");
    EXPECT_TRUE(QApplication::clipboard()->image().isNull());
}

TEST_F(Clipboard, PastingReplacesTheActivePicture)
{
    const OpenPicture& picture = placed();
    putimage(Qt::blue);
    choose("mnuEditPaste");
    ASSERT_EQ(openpictures.size(), 1U);
    EXPECT_EQ(picture.surface.kept.size(), QSize(30, 20));
    EXPECT_EQ(picture.surface.kept.pixelColor(0, 0), QColor(Qt::blue));
    EXPECT_EQ(picture.data.source, "Image collée");
    EXPECT_EQ(picture.data.lon[1], 0);
}

TEST_F(Clipboard, PastingOverTheWorldMapReplacesItsImageAndCorners)
{
    choose("mnuViewWorld");
    putimage(Qt::blue, "1\t2\t3\t4\t5\t6\t7\t8\t02\tIci\t");
    choose("mnuEditPaste");
    ASSERT_EQ(openpictures.size(), 1U);
    const OpenPicture& world = *openpictures.front();
    EXPECT_EQ(world.surface.kept.size(), QSize(30, 20));
    EXPECT_EQ(world.data.lon[0], 1);
    EXPECT_EQ(world.data.source, "Ici");
}

TEST_F(Clipboard, WithoutAnImageNothingIsPasted)
{
    const OpenPicture& picture = placed();
    QApplication::clipboard()->setText(QStringLiteral("7\t45\t"));
    choose("mnuEditPasteNew");
    choose("mnuEditPaste");
    EXPECT_EQ(openpictures.size(), 1U);
    EXPECT_EQ(picture.data.source, "colline.map");
}
