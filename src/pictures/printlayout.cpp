#include "pictures/printlayout.h"

#include "base/numbers.h"

#include <algorithm>
#include <string>

/// Width to height, as a text.
static std::string shapetext(double width, double height)
{
    return generalnumber(width / std::max(height, 1.0));
}

bool printslandscape(int width, int height)
{
    return leadingnumber(shapetext(width, height)) > 1;
}

PrintSize printsize(int width, int height, double pagewidth, double pageheight)
{
    const std::string picture = shapetext(width, height);
    const std::string page = shapetext(pagewidth, pageheight);
    const double r = leadingnumber(picture);
    const double q = leadingnumber(page);
    if (!(r > 0) || !(q > 0))
        return {};
    if (page > picture)
        return {pagewidth, q * pageheight / r};
    return {r * pagewidth / q, pageheight};
}
