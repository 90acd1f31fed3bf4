#pragma once

#include "pictures/paint/openpictures.h"

#include <QPointF>

#include <functional>
#include <memory>
#include <vector>

class QMouseEvent;
class QWidget;

/// What the mouse does on one picture beside moving the cursor and selecting: carry a station, turn
/// a view, edit a point. The tools of a picture are asked in the order of their making; an event
/// that one takes, no other gets.
class PictureTool
{
public:
    PictureTool() = default;
    PictureTool(const PictureTool&) = delete;
    PictureTool& operator=(const PictureTool&) = delete;
    virtual ~PictureTool() = default;

    /// Each is true when the tool takes the event.
    virtual bool pressed(const QMouseEvent& event) = 0;
    virtual bool doubleclicked(const QMouseEvent& event) = 0;
    virtual bool dragged(const QMouseEvent& event) = 0;
    virtual bool released(const QMouseEvent& event) = 0;
    /// Takes back what is under way; false when nothing is.
    virtual bool escape() = 0;
    /// Leaves what is under way as it stands: the picture closes or loses the keyboard.
    virtual void settle() = 0;
    /// The mouse stands at a place with no button down: shows the pointer that tells what a press
    /// would take. False when it would take nothing.
    virtual bool showpointer(const QPointF& at) = 0;
};

/// Makes a tool for a picture that is shown in `view`, one of whose units is a pixel of the
/// picture.
using PictureToolMaker =
    std::function<std::unique_ptr<PictureTool>(OpenPicture& picture, QWidget* view)>;

/// The makers of the tools that every new picture window gets, in the order in which the tools are
/// asked. The rooms above enter theirs when the program starts.
extern std::vector<PictureToolMaker> picturetoolmakers;
