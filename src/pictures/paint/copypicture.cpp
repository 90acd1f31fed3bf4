#include "pictures/paint/copypicture.h"

#include "pictures/copytext.h"
#include "pictures/georeference.h"

#include <QPainter>

#include <array>
#include <utility>

static CopiedPicture copyselection(const OpenPicture& picture, const QRect& part)
{
    Picture copied;
    copied.source = "Selection";
    copied.Pictype = pictype::fourcorners;
    const std::array<QPoint, 4> corners{part.topLeft(), part.topRight(), part.bottomRight(),
                                        part.bottomLeft()};
    for (std::size_t i = 0; i < corners.size(); ++i)
        pic2ll(picture.data, static_cast<float>(corners[i].x()), static_cast<float>(corners[i].y()),
               copied.lon[i], copied.lat[i]);
    return {surfaceimage(picture.surface).copy(part), copytext(copied)};
}

CopiedPicture copypicture(OpenPicture& picture)
{
    if (!std::exchange(picture.marks.Shape2, false))
        return {surfaceimage(picture.surface), copytext(picture.data)};
    picturehooks.picturechanged(picture, {});
    return copyselection(picture, picture.marks.selection);
}

void pastepic(OpenPicture& picture, const QImage& image, const std::string& text)
{
    resizepicture(picture, image.width(), image.height());
    QPainter(&picture.surface.kept).drawImage(QRect(QPoint(0, 0), image.size()), image);
    picture.links.reset();
    picture.data.Pictype = pictype::fourcorners;
    picture.data.source = "Image collée";
    picture.data.lon.fill(0);
    picture.data.lat.fill(0);
    parsecopytext(text, picture.data);
    picturehooks.picturechanged(picture, {});
}
