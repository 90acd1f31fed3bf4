#include "base/paint/colour.h"

QColor colorof(std::int32_t colour)
{
    return {colour & 255, colour >> 8 & 255, colour >> 16 & 255};
}

std::int32_t colourvalue(const QColor& colour)
{
    return colour.red() | colour.green() << 8 | colour.blue() << 16;
}
