#pragma once

#include "base/operation.h"
#include "coverage/radiosweep.h"
#include "coverage/sectorfill.h"
#include "coverage/viewshed.h"
#include "pictures/paint/openpictures.h"

#include <chrono>
#include <functional>
#include <memory>

/// What a sweep paints, without the map beneath.
class PaintedLayer
{
public:
    /// Begins anew with nothing painted.
    void begin(int width, int height);
    PixelSheet view();
    /// The value to paint a pixel with, so that the layer knows it for painted.
    static constexpr std::uint32_t pixel(std::uint32_t colour) { return colour & 0xFFFFFF; }
    /// The layer in its colours, transparent where nothing was painted.
    QImage image() const;

private:
    QImage sheet; ///< alpha 255: not painted; 0: painted. So the pens of all kinds tell it
};

/// The sheet that a sweep paints: the kept picture with the sectors over it. It lies over the
/// picture until the drawing there is erased or kept.
class CoverageSheet
{
public:
    explicit CoverageSheet(OpenPicture& target);

    PixelSheet view() const { return pixels; }
    /// Has what is painted kept apart, too; null: not.
    void addlayer(PaintedLayer* wanted);
    PaintedLayer* layer = nullptr;
    /// Shows what was painted since, at most thirty times a second.
    void refresh();

private:
    OpenPicture* picture;
    std::shared_ptr<QImage> image;
    PixelSheet pixels;
    std::chrono::steady_clock::time_point next{};
};

/// A sweep, as the interface shows it: reports its radials.
///   last  number of the last radial
Job coveragejob(int last);

/// Offers to draw a map picture anew as a plain relief when it is coloured, so that a coverage's
/// colours stand out, and does so on Yes, with the picture's own drawing values.
/// False when the user stopped the drawing.
bool covpicture(OpenPicture& picture);

/// Centre of a sweep: the pixel of a station. False when it isn't on the picture.
bool sweepcentre(const OpenPicture& picture, int unit, SweepCentre& centre);

/// The frame of a sweep: brings the picture to the front, offers the plain relief, then runs
/// `paint` on the picture's sheet as a long operation, which the caller ends.
///   last  number of the last radial, for the progress bar
/// False when the user stopped it; what was painted stays.
bool paintover(OpenPicture& picture, int last, const std::function<void(CoverageSheet&)>& paint);

/// Radio coverage by an order, painted over a picture that is the map's own rendering. Asks whether
/// to keep it. A stop leaves what was painted.
/// Returns the covered area in km²; 0 when nothing could be swept and after a stop.
///   layer   receives what was painted; null: nobody wants it
double drawcoverage(OpenPicture& picture, const CoverageOrder& order,
                    PaintedLayer* layer = nullptr);

/// Radio coverage of the run's parameters over the current picture; the area goes to the status
/// line.
void coverage();

/// Visual coverage by an order from a station, in a colour 0x00BBGGRR. Returns the seen area in
/// km²; 0 when nothing could be swept and after a stop.
///   layer   receives what was painted; null: nobody wants it
double drawviewshed(OpenPicture& picture, const ViewOrder& order, int unit, std::int32_t colour,
                    PaintedLayer* layer = nullptr);

/// Visual coverage of the run's parameters over the current picture. A radar file that cannot be
/// read ends it with nothing painted.
///   radarfile  name of a radar file of the program's folder; empty: none
void viscoverage(const std::string& radarfile);
