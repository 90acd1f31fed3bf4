#pragma once

#include "network/tables.h"
#include "pictures/paint/surface.h"
#include "pictures/picture.h"

#include <QLine>
#include <QRect>

#include <array>
#include <functional>
#include <memory>
#include <string>
#include <vector>

/// Where a station stands on a picture: what the mouse can hit.
struct StationMark {
    bool visible = false;
    QRect label;
    QRect icon; ///< empty: the station has none
};

/// Marks of a window that never enter a file, in picture pixels.
struct PictureMarks {
    bool Line1 = false, Line2 = false; ///< the vertical and horizontal hair are shown
    QLine vertical, horizontal;
    bool Shape2 = false; ///< the selection is shown
    QRect selection;
    std::array<QRect, 4> Shape1; ///< boxes of the stereo cursor; an empty one is hidden
    std::array<StationMark, MAXUNIT + 1> stations;
};

/// Hides hairs, selection, and the stereo cursor but for its first box. Hairs and selection keep
/// their places.
void hidemarks(PictureMarks& marks);

/// The station whose icon, label or cross lies at a pixel; the one on top where there are several;
/// 0: none.
int stationat(const PictureMarks& marks, const QPoint& at);

/// Links as they lie on a picture; the room that draws networks keeps it there.
struct LinkSheet;

/// An open picture: its data, its surface, and the marks over it. A window shows it; everything
/// that draws works on it without one.
struct OpenPicture {
    Picture data;
    Surface surface;
    PictureMarks marks;
    std::shared_ptr<LinkSheet> links; ///< as they were last drawn over it
    std::string caption;
    bool blank = false;  ///< made for drawing, not read from a file
    bool enabled = true; ///< takes the mouse; off while it is being drawn
};

/// The open pictures, in the order of their opening. A picture stays where it is until it closes.
extern std::vector<std::unique_ptr<OpenPicture>> openpictures;
/// The picture drawn in last; none after it was closed.
extern OpenPicture* currentpic;
/// Counts untitled pictures for the whole run.
extern int picseq;

/// Calls from the list up to the windows. Harmless by default.
struct PictureHooks {
    /// A picture was opened or filled anew: it needs a window, laid out, visible, and active.
    std::function<void(OpenPicture&)> showpicture = [](OpenPicture&) {};
    /// The surface has another size.
    std::function<void(OpenPicture&)> fitpic = [](OpenPicture&) {};
    /// Pixels or marks changed; an empty rectangle means everywhere.
    std::function<void(OpenPicture&, const QRect&)> picturechanged = [](OpenPicture&,
                                                                        const QRect&) {};
    /// The geographic cursor moved.
    std::function<void()> cursormoved = [] {};
    /// A station was moved by hand: it stays there (`settled`), or is still on its way.
    std::function<void(int unit, bool settled)> stationmoved = [](int, bool) {};
    /// A picture shows a part of another one that carries stations and links: they must be drawn
    /// anew.
    std::function<void(OpenPicture&)> drawnetsover = [](OpenPicture&) {};
    /// The picture is about to leave the list.
    std::function<void(OpenPicture&)> closewindow = [](OpenPicture&) {};
};
extern PictureHooks picturehooks;

/// Opens or makes a picture; it is `currentpic` afterwards.
///   name       raster file, as users write it; empty makes an untitled picture
///   requested  below 0: to be drawn from the map; else a raster with its sidecar, if it has one
/// A file that is found neither by its name, nor beside the network, nor in the program's folder
/// opens nothing and gives a null pointer; so does one that is no image, or too large for one: the
/// status line then says so, and a picture of this name stays as it is.
OpenPicture* openpic(const std::string& name, int requested);

/// Writes raster and sidecar of a picture, asking before it replaces a sidecar. A name that isn't
/// a .bmp gets a sidecar only, after a question. What could not be written is told in the status
/// line; the old file then stays. True when the picture and what was asked for are saved.
bool savepic(OpenPicture& picture, const std::string& name);

/// True while a picture is in the list. A job looks after its first handling of events, which comes
/// before anything keeps the user from closing windows.
bool stillopen(const OpenPicture* picture);

/// Takes a picture off the list.
void closepicture(OpenPicture& picture);

/// Gives a picture's surface another size and clears it.
void resizepicture(OpenPicture& picture, int width, int height);

/// File names of the open pictures as a network file lists them: by the name under
/// which they are kept, without the world map.
std::vector<std::string> picturenames();

/// Lets the logic reach the open pictures: fills the hooks for opening, listing and placing.
void connectpictures();
