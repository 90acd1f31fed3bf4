#pragma once

#include <QColor>
#include <QImage>
#include <QPainter>

#include <algorithm>
#include <limits>

/// A graph painted on a picture of a density, for tests that look at its pixels. Places are in
/// logical pixels.
class Painted
{
public:
    template <typename Paint>
    Painted(const QSizeF& size, double density_, const Paint& paint)
        : image((size * density_).toSize(), QImage::Format_RGB32), density(density_)
    {
        image.setDevicePixelRatio(density);
        image.fill(Qt::black);
        QPainter painter(&image);
        paint(size, painter);
    }

    QColor at(double x, double y) const
    {
        return image.pixelColor(static_cast<int>(x * density), static_cast<int>(y * density));
    }
    /// True when a pixel within this distance of a place has the colour.
    bool near(const QPointF& place, const QColor& colour, double distance = 1.5) const
    {
        const QRectF around(place.x() - distance, place.y() - distance, 2 * distance, 2 * distance);
        return count(around, colour) > 0;
    }
    /// Pixels in a part of the picture whose colour is such.
    template <typename Condition> int countif(const QRectF& part, const Condition& such) const
    {
        const QRect pixels =
            QRectF(part.topLeft() * density, part.size() * density).toAlignedRect() & image.rect();
        int found = 0;
        for (int y = pixels.top(); y <= pixels.bottom(); ++y)
            for (int x = pixels.left(); x <= pixels.right(); ++x)
                found += such(image.pixelColor(x, y));
        return found;
    }
    /// Pixels of a colour in a part of the picture.
    int count(const QRectF& part, const QColor& colour) const
    {
        return countif(part, [&](const QColor& pixel) { return pixel == colour; });
    }
    /// The greatest measure of a pixel's colour in a part of the picture.
    template <typename Measure> int greatest(const QRectF& part, const Measure& measure) const
    {
        int most = std::numeric_limits<int>::min();
        countif(part, [&](const QColor& pixel) {
            most = std::max(most, measure(pixel));
            return false;
        });
        return most;
    }
    int count(const QColor& colour) const
    {
        return count(QRectF(QPointF(), QSizeF(image.size()) / density), colour);
    }
    /// True when all pixels have the colour.
    bool bare(const QColor& colour) const
    {
        return count(colour) == image.width() * image.height();
    }

    QImage image;
    double density;
};
