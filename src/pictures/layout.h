#pragma once

/// How a picture's surface and its scroll bars lie in a window; all in pixels.
struct PictureLayout {
    int left = 0, top = 0; ///< of the surface, in the window; below 0: scrolled
    int visiblewidth = 0;  ///< of the surface
    int visibleheight = 0; ///< of the surface
    bool hscroll = false;  ///< the horizontal bar is shown
    bool vscroll = false;  ///< the vertical bar is shown
};

/// Lays a surface out in a window: centred where it fits, else scrolled. One bar takes room and can
/// force the other.
///   width, height                of the window's inside
///   surfacewidth, surfaceheight  of the surface
///   bar                          thickness of a scroll bar
///   left, top                    where the surface lies now
PictureLayout layoutpicture(int width, int height, int surfacewidth, int surfaceheight, int bar,
                            int left, int top);
