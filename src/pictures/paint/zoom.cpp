#include "pictures/paint/zoom.h"

#include "base/hooks.h"
#include "base/numbers.h"
#include "pictures/georeference.h"

#include <QPainter>

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>

namespace
{

int pixels(double length)
{
    constexpr double longest = std::numeric_limits<std::int16_t>::max();
    return static_cast<int>(std::clamp(roundtoeven(length), 1.0, longest));
}

/// Stretches a part over a larger image so that the middles of its outermost pixels come to lie in
/// those of the image: as the corners' positions say.
QImage magnified(const QImage& image, const QRect& part, const QSize& size)
{
    QImage large(size, QImage::Format_RGB32);
    QPainter painter(&large);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.translate(0.5, 0.5);
    painter.scale((size.width() - 1.0) / std::max(1, part.width() - 1),
                  (size.height() - 1.0) / std::max(1, part.height() - 1));
    painter.drawImage(QPointF(-0.5, -0.5) - part.topLeft(), image);
    return large;
}

QImage stretched(const QImage& image, const QRect& part, const QSize& size)
{
    if (size.width() >= part.width() && size.height() >= part.height())
        return magnified(image, part, size);
    return image.copy(part).scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

/// The corners of a part of a picture, from those of the whole.
void placezoom(const Picture& parent, const QRect& part, Picture& zoom)
{
    const std::array<QPoint, 4> corners{part.topLeft(), part.topRight(), part.bottomRight(),
                                        part.bottomLeft()};
    for (std::size_t i = 0; i < corners.size(); ++i)
        pic2ll(parent, static_cast<float>(corners[i].x()), static_cast<float>(corners[i].y()),
               zoom.lon[i], zoom.lat[i]);
}

bool carriesnets(const OpenPicture& picture)
{
    return std::any_of(picture.marks.stations.begin(), picture.marks.stations.end(),
                       [](const StationMark& mark) { return mark.visible; });
}

} // namespace

QSize zoomsize(const QSize& part, const QSize& screen)
{
    constexpr double share = 0.95; // of the screen
    const double w = part.width();
    const double h = part.height();
    if (static_cast<double>(screen.height()) / screen.width() < h / w) {
        const int height = pixels(share * screen.height());
        return {pixels(height * w / h), height};
    }
    const int width = pixels(share * screen.width());
    return {width, pixels(width * h / w)};
}

OpenPicture* zoompicture(OpenPicture& parent, const QRect& part)
{
    const auto [screenwidth, screenheight] = hooks.screensize();
    const QSize size = zoomsize(part.size(), QSize(screenwidth, screenheight));
    OpenPicture& zoom = *openpic("", pictype::fourcorners);
    resizepicture(zoom, size.width(), size.height());
    zoom.surface.kept = stretched(parent.surface.kept, part, size);
    placezoom(parent.data, part, zoom.data);
    zoom.data.Pictype = pictype::fourcorners;
    zoom.data.source = "Zoom de " + parent.data.source;
    // Stations and links would be blurred by the magnification: they are drawn anew.
    if (carriesnets(parent))
        picturehooks.drawnetsover(zoom);
    picturehooks.showpicture(zoom);
    return &zoom;
}
