#include "base/paint/colour.h"

#include <cmath>

QColor colorof(std::int32_t colour)
{
    return {colour & 255, colour >> 8 & 255, colour >> 16 & 255};
}

std::int32_t colourvalue(const QColor& colour)
{
    return colour.red() | colour.green() << 8 | colour.blue() << 16;
}

static double linear(double channel)
{
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

static double luminance(const QColor& colour)
{
    return 0.2126 * linear(double{colour.redF()}) + 0.7152 * linear(double{colour.greenF()}) +
           0.0722 * linear(double{colour.blueF()});
}

double contrast(const QColor& a, const QColor& b)
{
    const double first = luminance(a) + 0.05;
    const double second = luminance(b) + 0.05;
    return first > second ? first / second : second / first;
}

QColor readablered(const QColor& background)
{
    constexpr double enough = 4.5;
    const QColor pure(255, 0, 0);
    // Away from the background: darker on paper, paler on a dark desktop.
    const bool paper = luminance(background) > luminance(pure);
    QColor red = pure;
    for (int step = 1; step < 256 && contrast(red, background) < enough; ++step)
        red = paper ? QColor(255 - step, 0, 0) : QColor(255, step, step);
    return red;
}
