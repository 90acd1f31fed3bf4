#include "pictures/layout.h"

#include <algorithm>

namespace
{

/// Position along one axis: centred without a bar; with one, never away from the window's edge.
int position(bool scrolled, int available, int surface, int now)
{
    return scrolled ? std::min(now, 0) : (available - surface) / 2;
}

} // namespace

PictureLayout layoutpicture(int width, int height, int surfacewidth, int surfaceheight, int bar,
                            int left, int top)
{
    PictureLayout layout;
    layout.hscroll = surfacewidth > width;
    layout.vscroll = surfaceheight > height - (layout.hscroll ? bar : 0);
    layout.hscroll = surfacewidth > width - (layout.vscroll ? bar : 0);
    width -= layout.vscroll ? bar : 0;
    height -= layout.hscroll ? bar : 0;
    layout.visiblewidth = std::clamp(width, 0, surfacewidth);
    layout.visibleheight = std::clamp(height, 0, surfaceheight);
    layout.left = position(layout.hscroll, width, surfacewidth, left);
    layout.top = position(layout.vscroll, height, surfaceheight, top);
    return layout;
}
