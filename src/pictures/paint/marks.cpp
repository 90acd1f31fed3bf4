#include "pictures/paint/openpictures.h"

namespace
{

/// Half sides of a station's cross, pixels: as it is drawn, and as the mouse finds it.
constexpr int crossarm = 2;
constexpr int crossreach = 4;

bool nearcross(const StationMark& mark, const QPoint& at, int reach)
{
    const QPoint off = at - mark.label.topLeft();
    return std::abs(off.x()) <= reach && std::abs(off.y()) <= reach;
}

/// The last of the stations that fulfil a condition: later ones lie on top.
template <typename Condition> int topmost(const PictureMarks& marks, Condition condition)
{
    for (std::size_t i = MAXUNIT; i >= 1; --i)
        if (marks.stations[i].visible && condition(marks.stations[i]))
            return static_cast<int>(i);
    return 0;
}

} // namespace

void hidemarks(PictureMarks& marks)
{
    marks.Line1 = marks.Line2 = marks.Shape2 = false;
    for (std::size_t i = 1; i < marks.Shape1.size(); ++i)
        marks.Shape1[i] = {};
}

int stationat(const PictureMarks& marks, const QPoint& at)
{
    const int hit = topmost(marks, [&at](const StationMark& mark) {
        return mark.label.contains(at) || mark.icon.contains(at) || nearcross(mark, at, crossarm);
    });
    return hit != 0 ? hit : topmost(marks, [&at](const StationMark& mark) {
        return nearcross(mark, at, crossreach);
    });
}
