#pragma once

#include "netoverlay/paint/movestation.h"
#include "network/windows/netundo.h"
#include "pictures/windows/picturetool.h"

#include <QTimer>

#include <functional>
#include <memory>
#include <optional>

/// What the mouse on a station opens. Harmless by default.
struct PictureWindowHooks {
    /// Opens the editor of the current station, `selection.curunit`.
    std::function<void()> editstation = [] {};
    /// Shows the radio link of two stations that differ.
    std::function<void(int a, int b)> showlink = [](int, int) {};
};
extern PictureWindowHooks picturewindowhooks;

/// The ends of a link as presses with shift have picked them; 0: not yet.
struct PickedEnds {
    int first = 0, second = 0;
};

/// The mouse on the stations of one picture: a double click edits a station, a press with shift
/// makes it an end of a link, a right press offers to move it to the cursor, a left drag carries it
/// with its links evaluated on the way. What it takes, nobody else gets.
class StationMouse : public PictureTool
{
public:
    /// view: where the picture is shown; one unit is a pixel of the picture.
    /// ends: the two may be picked on different pictures.
    StationMouse(OpenPicture& picture, QWidget* view, std::shared_ptr<PickedEnds> ends);

    bool pressed(const QMouseEvent& event) override;
    bool doubleclicked(const QMouseEvent& event) override;
    bool dragged(const QMouseEvent& event) override;
    bool released(const QMouseEvent& event) override;
    /// Puts a station that is being carried back where it was; false when none is.
    bool escape() override;
    /// Leaves a station that is being carried where it is.
    void settle() override;
    /// The pointer tells whether a station can be grabbed at a place.
    bool showpointer(const QPointF& at) override;

private:
    void carry();
    void pickend(int unit, Qt::MouseButton button);
    void offermoving(int unit);

    OpenPicture& shown;
    QWidget* surface;
    int held = 0;       ///< station under the button since its press; 0: none
    bool given = false; ///< its press has had its effect: moves have none
    QPointF pressedat;
    QPointF grip;   ///< from the station to the mouse
    QPointF wanted; ///< where the mouse is; moves that come faster than the drawing fall together
    QTimer redraw;  ///< runs from a move until it is drawn
    std::optional<StationDrag> drag;
    std::optional<TablesEdit> edit; ///< the drag as one thing to take back
    std::shared_ptr<PickedEnds> picked;
};

/// Gives the picture windows that are made from now on the mouse on stations; they share the ends
/// of a link.
void connectstationmouse();
