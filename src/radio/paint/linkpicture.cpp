#include "radio/paint/linkpicture.h"

#include "base/numbers.h"
#include "radio/earth.h"
#include "radio/paint/graphstyle.h"
#include "radio/paint/profileaxes.h"

#include <QLinearGradient>
#include <QPainter>

#include <cmath>

namespace
{
constexpr QColor skytop{104, 120, 146};
constexpr QColor skybottom{136, 148, 164};
constexpr QColor ground{92, 88, 80};
constexpr QColor earth{66, 65, 64};
constexpr QColor fresnelgrey{233, 233, 233};
constexpr QColor zonefill{255, 255, 255, 26};
constexpr QColor casing{0, 0, 0, 90};

/// The pieces of a profile picture: each paints its own, with the study, the scale and the size at
/// hand.
class ProfilePainting
{
public:
    ProfilePainting(const LinkStudy& study_, const QSizeF& size_, QPainter& painter_)
        : study(study_), link(study_.link), scale(profilescale(study_)), size(size_),
          painter(painter_), n(study_.link.profile.intervals())
    {
    }
    void paintsky();
    void paintground();
    void paintzones();
    void paintterrain();
    void paintrays();

private:
    QPointF at(double i, double height_m) const { return heldpoint(scale.at(i, height_m, size)); }
    double earthat(int i) const { return drawnheights(study).low + bulgeat(study, i); }
    double rayat(double f) const
    {
        return (link.record.h2 + link.profile.sample(n)) * f +
               (link.record.h1 + link.profile.sample(0)) * (1 - f);
    }
    QPolygonF terrain() const;
    QPolygonF earthcurve() const;
    QPolygonF zoneedge(double radii) const;
    void paintray(const QPolygonF& ray);

    const LinkStudy& study;
    const Link& link;
    GraphScale scale;
    QSizeF size;
    QPainter& painter;
    int n;
};

QPolygonF ProfilePainting::terrain() const
{
    QPolygonF line;
    for (int i = 0; i <= n; ++i)
        line << at(i, link.profile.sample(i));
    return line;
}

QPolygonF ProfilePainting::earthcurve() const
{
    QPolygonF line;
    for (int i = 0; i <= n; ++i)
        line << at(i, earthat(i));
    return line;
}

/// Edge of a Fresnel zone: the ray raised by so many radii of the first zone.
QPolygonF ProfilePainting::zoneedge(double radii) const
{
    QPolygonF line;
    for (int i = 0; i <= n; ++i) {
        const double f = static_cast<double>(i) / n;
        const double radius = fresnelradius(f, link.profile.distkm, link.record.freq);
        line << at(i, rayat(f) + radii * radius);
    }
    return line;
}

void ProfilePainting::paintsky()
{
    QLinearGradient sky(0, 0, 0, size.height());
    sky.setColorAt(0, skytop);
    sky.setColorAt(1, skybottom);
    painter.fillRect(QRectF(QPointF(), size), sky);
}

void ProfilePainting::paintground()
{
    fillbelow(terrain(), size.height(), ground, painter);
    fillbelow(earthcurve(), size.height(), earth, painter);
}

void ProfilePainting::paintzones()
{
    // A link without a net has no frequency, and one of 0 MHz no zones.
    if (study.net < 1 || !(link.record.freq > 0))
        return;
    QPolygonF first = zoneedge(-1);
    const QPolygonF upper = zoneedge(1);
    for (auto point = upper.crbegin(); point != upper.crend(); ++point)
        first << *point;
    painter.setPen(Qt::NoPen);
    painter.setBrush(zonefill);
    painter.drawPolygon(first);
    painter.setBrush(Qt::NoBrush);
    for (int zone = 1; zone <= 3; ++zone)
        for (const double side : {-1.0, 1.0})
            paintcurve(zoneedge(side * std::sqrt(zone)), 1, fresnelgrey, painter);
}

/// Colour of the terrain at a sample: how it receives the left station. Without a net all of it is
/// of middling reception.
QColor terraincolour(const LinkStudy& study, int i)
{
    constexpr double margin_db = 3;
    const double level_db =
        study.net > 0 ? roundtoeven(study.link.gain12 - study.link.lossat(i)) : 0;
    if (level_db >= margin_db)
        return brightgreen;
    return level_db >= -margin_db ? yellow : brightred;
}

void ProfilePainting::paintterrain()
{
    paintcurve(earthcurve(), 1.2, Qt::black, painter);
    const auto pen = [](const QColor& colour) { return QPen(colour, 2); };
    const QPolygonF line = terrain();
    for (int i = 1; i <= n;) {
        // One polyline as long as the colour lasts.
        const QColor colour = terraincolour(study, i);
        QPolygonF run{line[i - 1]};
        for (; i <= n && terraincolour(study, i) == colour; ++i)
            run << line[i];
        painter.setPen(pen(colour));
        paintline(run, painter);
    }
    painter.setPen(pen(magenta));
    painter.drawLine(at(0, study.analysis.top1), line.front());
    painter.drawLine(line.back(), at(n, study.analysis.top2));
}

/// A ray in the colour of the far end's reception, on a dark casing that holds it off the ground
/// and the sky.
void ProfilePainting::paintray(const QPolygonF& ray)
{
    painter.setPen(QPen(casing, 3, Qt::SolidLine, Qt::FlatCap));
    paintline(ray, painter);
    painter.setPen(QPen(raycolour(study), 1.6));
    paintline(ray, painter);
}

void ProfilePainting::paintrays()
{
    const QPointF left = at(0, study.analysis.top1);
    const QPointF right = at(n, study.analysis.top2);
    paintray({left, right});
    if (study.net < 1 || !study.analysis.crossing)
        return;
    const HorizonCrossing& crossing = *study.analysis.crossing;
    const QPointF top = at(n * crossing.km / link.profile.distkm,
                           crossing.km * 1000 * crossing.slope1 + study.analysis.top1);
    if (std::isfinite(top.x()) && std::isfinite(top.y()))
        paintray({left, top, right});
}
} // namespace

QColor raycolour(const LinkStudy& study)
{
    return terraincolour(study, study.link.profile.intervals());
}

void paintprofile(const LinkStudy& study, const QSizeF& size, QPainter& painter)
{
    const GraphPainting graph(size, painter);
    const GraphScale scale = profilescale(study);
    if (!study.done || !std::isfinite(scale.top) || !std::isfinite(scale.height))
        return;
    ProfilePainting profile(study, size, painter);
    profile.paintsky();
    paintelevations(study, size, painter);
    profile.paintground();
    profile.paintzones();
    paintaxes(study, size, painter);
    profile.paintterrain();
    profile.paintrays();
}
