#pragma once

#include "radio/distribution.h"
#include "radio/linkstudy.h"
#include "radio/paint/profilescale.h"

#include <QColor>
#include <QSizeF>

class QPainter;

/// Ground of all graphs, on which every colour of their lines stands out: a painter that shows no
/// graph fills its picture with it.
inline constexpr QColor linkcanvas{118, 132, 152};

/// Colour of the direct ray: how the far end receives. The link on pictures has it too.
QColor raycolour(const LinkStudy& study);

/// The graphs of the link window. Each fills the whole picture, (0, 0) to size in logical pixels;
/// one of a study that isn't done, or has nothing to show, is the bare ground.
///   size  at least a few pixels; the drawing is made for 400 x 200 to 2000 x 1000

/// Terrain over the curved earth, with masts, Fresnel zones, the direct ray, the horizons' rays
/// and axes. The topmost band of the picture stays free for a line of text.
void paintprofile(const LinkStudy& study, const QSizeF& size, QPainter& painter);
/// The texts of the analysis.
void paintdetails(const LinkStudy& study, const QSizeF& size, QPainter& painter);
/// Loss along the path, downward, against the system gain.
void paintrange(const LinkStudy& study, const QSizeF& size, QPainter& painter);
/// The bell curve of the received signal, from weak to strong.
void paintdistribution(const Distribution& distribution, const QSizeF& size, QPainter& painter);

/// An S-meter: nine boxes for S 1 to S 9, three for 10, 20 and 30 dB above.
///   level  0 to 9 the S number, from 10 on S 9 plus so many dB; rounded
void paintsmeter(float level, const QSizeF& size, QPainter& painter);
