#pragma once

#include <QImage>

#include <functional>
#include <vector>

class QPainter;

/// Something drawn over a picture, in picture pixels. It is painted again at every scale that a
/// screen asks for, so that lines and texts are sharp on all of them.
using Stroke = std::function<void(QPainter&)>;

/// The image of a picture in two sheets: the kept picture, and the drawing over it, which one call
/// erases and one keeps.
struct Surface {
    QImage kept; ///< 32-bit, opaque
    std::vector<Stroke> over;

    int width() const { return kept.width(); }
    int height() const { return kept.height(); }
};

/// Gives the surface a size of at least 1 x 1 and clears both sheets.
void resizesurface(Surface& surface, int width, int height);

/// Clears the kept picture and the drawing over it.
void clearsurface(Surface& surface);

/// Takes the drawing off; the kept picture comes back.
void erase(Surface& surface);

/// Makes the drawing part of the kept picture.
void keep(Surface& surface);

/// Paints both sheets; the painter's unit is a picture pixel.
void paintsurface(const Surface& surface, QPainter& painter);

/// Both sheets in one image, as it is saved.
QImage surfaceimage(const Surface& surface);
