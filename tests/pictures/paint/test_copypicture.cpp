#include "pictures/copytext.h"
#include "pictures/georeference.h"
#include "pictures/paint/copypicture.h"
#include "pictures/paint/picturetest.h"

#include <QPainter>

namespace
{

class CopyPicture : public PictureTest
{
protected:
    void SetUp() override
    {
        PictureTest::SetUp();
        makemap(301, 201);
        parent = drawmap(nullptr, true);
    }

    void select(const QRect& part) const
    {
        parent->marks.Shape2 = true;
        parent->marks.selection = part;
    }
    static OpenPicture& pasteasnew(const CopiedPicture& copied)
    {
        OpenPicture& picture = *openpic("", pictype::fourcorners);
        pastepic(picture, copied.image, copied.text);
        return picture;
    }

    OpenPicture* parent = nullptr;
};

} // namespace

TEST_F(CopyPicture, TakesTheWholePictureWithWhatIsDrawnOverIt)
{
    parent->surface.over.emplace_back(
        [](QPainter& painter) { painter.fillRect(0, 0, 10, 10, Qt::red); });
    const CopiedPicture copied = copypicture(*parent);
    EXPECT_EQ(copied.image, surfaceimage(parent->surface));
    EXPECT_EQ(copied.image.pixelColor(5, 5), QColor(Qt::red));
    EXPECT_EQ(copied.text, copytext(parent->data));
}

TEST_F(CopyPicture, ASelectionIsAPictureOfFourCornersAndIsHidden)
{
    select(QRect(40, 30, 100, 50));
    const CopiedPicture copied = copypicture(*parent);
    EXPECT_FALSE(parent->marks.Shape2);
    EXPECT_EQ(copied.image, surfaceimage(parent->surface).copy(40, 30, 100, 50));
    const OpenPicture& pasted = pasteasnew(copied);
    EXPECT_EQ(pasted.data.Pictype, pictype::fourcorners);
    EXPECT_EQ(pasted.data.source, "Selection");
    EXPECT_EQ(pasted.surface.kept, copied.image);
}

TEST_F(CopyPicture, APastedSelectionGivesTheDegreesOfItsParent)
{
    select(QRect(40, 30, 100, 50));
    const OpenPicture& pasted = pasteasnew(copypicture(*parent));
    for (const QPoint& at : {QPoint(0, 0), QPoint(99, 49), QPoint(50, 25), QPoint(0, 49)}) {
        float lon = 0;
        float lat = 0;
        float parentlon = 0;
        float parentlat = 0;
        ASSERT_TRUE(
            pic2ll(pasted.data, static_cast<float>(at.x()), static_cast<float>(at.y()), lon, lat));
        ASSERT_TRUE(pic2ll(parent->data, static_cast<float>(at.x() + 40),
                           static_cast<float>(at.y() + 30), parentlon, parentlat));
        EXPECT_NEAR(lon, parentlon, 6e-6); // five decimals in the text
        EXPECT_NEAR(lat, parentlat, 6e-6);
    }
}

TEST_F(CopyPicture, AnImageOfAnotherProgramHasNoPlace)
{
    QImage image(20, 10, QImage::Format_ARGB32);
    image.fill(QColor(0, 0, 255, 0)); // transparent: it lies on white
    const OpenPicture& pasted = pasteasnew({image, ""});
    EXPECT_EQ(pasted.surface.kept.size(), QSize(20, 10));
    EXPECT_EQ(pasted.surface.kept.pixelColor(3, 3), QColor(Qt::white));
    EXPECT_EQ(pasted.data.Pictype, pictype::fourcorners);
    EXPECT_EQ(pasted.data.source, "Image collée");
    for (std::size_t corner = 0; corner < 4; ++corner) {
        EXPECT_EQ(pasted.data.lon[corner], 0);
        EXPECT_EQ(pasted.data.lat[corner], 0);
    }
    float x = 0;
    float y = 0;
    EXPECT_FALSE(ll2pic(pasted.data, 0, 0, x, y));
    EXPECT_FALSE(ll2pic(pasted.data, 7, 45, x, y));
}

TEST_F(CopyPicture, PastingReplacesImageAndPlaceOfAPicture)
{
    parent->surface.over.emplace_back([](QPainter&) {});
    QImage image(20, 10, QImage::Format_RGB32);
    image.fill(Qt::green);
    pastepic(*parent, image, "1\t2\t3\t4\t5\t6\t7\t8\t99\tAilleurs\t");
    EXPECT_EQ(surfaceimage(parent->surface), image);
    EXPECT_TRUE(parent->surface.over.empty());
    EXPECT_EQ(parent->data.scalewidth, 20);
    EXPECT_EQ(parent->data.lat[3], 8);
    EXPECT_EQ(parent->data.Pictype, 20);
    EXPECT_EQ(parent->data.source, "Ailleurs");
}
