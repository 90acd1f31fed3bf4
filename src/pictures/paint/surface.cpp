#include "pictures/paint/surface.h"

#include <QPainter>

#include <algorithm>

namespace
{

void paintstrokes(const Surface& surface, QPainter& painter)
{
    for (const Stroke& stroke : surface.over) {
        painter.save();
        stroke(painter);
        painter.restore();
    }
}

} // namespace

void resizesurface(Surface& surface, int width, int height)
{
    surface.kept = QImage(std::max(width, 1), std::max(height, 1), QImage::Format_RGB32);
    clearsurface(surface);
}

void clearsurface(Surface& surface)
{
    surface.kept.fill(Qt::white);
    surface.over.clear();
}

void erase(Surface& surface)
{
    surface.over.clear();
}

void keep(Surface& surface)
{
    if (surface.over.empty())
        return;
    QPainter painter(&surface.kept);
    paintstrokes(surface, painter);
    painter.end();
    surface.over.clear();
}

void paintsurface(const Surface& surface, QPainter& painter)
{
    painter.drawImage(QPointF(0, 0), surface.kept);
    paintstrokes(surface, painter);
}

QImage surfaceimage(const Surface& surface)
{
    QImage image = surface.kept;
    if (!surface.over.empty()) {
        QPainter painter(&image);
        paintstrokes(surface, painter);
    }
    return image;
}
