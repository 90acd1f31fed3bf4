#include "gis/module/cell.h"

#include <algorithm>
#include <cstdlib>
#include <fmt/format.h>

static int rowspacing(int level)
{
    return level == 2 ? 1 : 3; // arc seconds
}

int ImportCell::columns() const
{
    // Widening of the column spacing by the latitude of the edge that is nearest to the equator.
    const int edge = lat >= 0 ? lat : -lat - 1;
    const int factor = edge >= 80 ? 6 : edge >= 75 ? 4 : edge >= 70 ? 3 : edge >= 50 ? 2 : 1;
    return 3600 / (rowspacing(level) * factor) + 1;
}

int ImportCell::rows() const
{
    return 3600 / rowspacing(level) + 1;
}

std::string ImportCell::name() const
{
    return fmt::format("DTED/{}{:03}/{}{:02}.DT{}", lon < 0 ? 'W' : 'E', std::abs(lon),
                       lat < 0 ? 'S' : 'N', std::abs(lat), level);
}
