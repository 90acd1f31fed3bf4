#include "pictures/windows/showworld.h"

#include "pictures/paint/cursor.h"
#include "pictures/windows/frmPic.h"

#include <QImage>
#include <QMdiArea>
#include <QMdiSubWindow>

#include <algorithm>

namespace
{

OpenPicture* openworld()
{
    const auto found = std::find_if(openpictures.begin(), openpictures.end(),
                                    [](const auto& open) { return open->caption == worldtitle; });
    return found == openpictures.end() ? nullptr : found->get();
}

void bringforward(const OpenPicture& picture)
{
    frmPic* window = windowof(picture);
    if (window == nullptr)
        return;
    auto* frame = qobject_cast<QMdiSubWindow*>(window->parentWidget());
    QWidget* outer = frame ? static_cast<QWidget*>(frame) : window;
    if (outer->isMinimized())
        outer->showNormal();
    if (frame && frame->mdiArea())
        frame->mdiArea()->setActiveSubWindow(frame);
}

/// The whole Earth, in whole degrees.
OpenPicture& addworld()
{
    openpictures.push_back(std::make_unique<OpenPicture>());
    OpenPicture& picture = *openpictures.back();
    picture.caption = picture.data.source = picture.data.Filename = worldtitle;
    picture.data.Pictype = pictype::map;
    picture.data.lon = {-180, 180, 180, -180};
    picture.data.lat = {90, 90, -90, -90};
    const QImage image(QStringLiteral(":/world/world.jpg"));
    resizepicture(picture, image.width(), image.height());
    if (!image.isNull())
        picture.surface.kept = image.convertToFormat(QImage::Format_RGB32);
    return picture;
}

} // namespace

/// Makes the image known; it lies in this library.
static void useworld()
{
    Q_INIT_RESOURCE(world);
}

void showworld()
{
    if (const OpenPicture* open = openworld()) {
        bringforward(*open);
        return;
    }
    useworld();
    OpenPicture& picture = addworld();
    picturehooks.showpicture(picture);
    movecursor(cursor.lon, cursor.lat);
}
