#pragma once

#include "pictures/paint/surface.h"

#include <QColor>
#include <QPoint>
#include <QSize>

#include <memory>
#include <vector>

/// A link as it lies on a picture, in its pixels.
struct LinkLine {
    QPoint from, to;
    int lineclass = 0; ///< 1 to 6

    bool operator==(const LinkLine&) const = default;
};

/// All links of a picture, painted as one. A dense network has more than a thousand lines; so that
/// hairs and stations move over them at once, they are kept as an image of the last scale.
struct LinkSheet {
    std::vector<LinkLine> lines;
    bool opaque = false; ///< with dark edges
    QSize size;          ///< of the picture, pixels
    QImage image;        ///< with alpha; null: not painted yet, or not worth it
    double scale = 0;    ///< of the image, to a picture pixel
};

/// Puts lines on a sheet. The sheet that a picture has stays, with its image, when it has the same.
void fillsheet(std::shared_ptr<LinkSheet>& sheet, std::vector<LinkLine> lines, bool opaque,
               const QSize& size);

/// Paints what is on a sheet: at a screen's scale by its image, else line by line.
void paintsheet(LinkSheet& sheet, QPainter& painter);

/// Paints one link: a bright line over a wider dark one, if `opaque`.
void paintlink(QPainter& painter, const LinkLine& link, bool opaque);

/// Lines of odd width go through the middle of pixels, of even width between them, so that their
/// edges are sharp where the line is level or upright.
void paintline(QPainter& painter, const QLineF& line, const QColor& colour, int width, bool dotted);
