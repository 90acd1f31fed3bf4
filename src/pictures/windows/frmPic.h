#pragma once

#include "pictures/paint/openpictures.h"
#include "pictures/windows/picturetool.h"

#include <QPointer>
#include <QScrollArea>

#include <functional>
#include <memory>
#include <vector>

class QSizeGrip;
class SurfaceView;

/// A picture window: shows one entry of the list of open pictures, with scroll bars, mouse and
/// keys.
class frmPic : public QScrollArea
{
    Q_OBJECT
public:
    explicit frmPic(OpenPicture& shown, QWidget* parent = nullptr);

    /// The picture shown; none after it left the list.
    OpenPicture* picture() const { return entry; }
    /// Gives the surface its size and the keyboard; scroll bars and grip follow.
    void fitpic();
    /// A picture larger than its window shows its middle.
    void showmiddle();
    /// Paints a part of the picture again; everything when it is empty. Caption and state follow.
    void refresh(const QRect& part);
    /// The picture leaves the list: shows nothing from now on.
    void release();

    QSize sizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void connectsurface();
    void fitbars();
    /// True when a tool takes what is offered; those behind it are not asked.
    bool offered(const std::function<bool(PictureTool&)>& offer);
    void settletools();
    void surfacepressed(QMouseEvent* event);
    void surfacemoved(QMouseEvent* event);
    void pictureclicked(const QPoint& at, bool right, bool shift);
    bool offerzoom(const QPoint& at);
    void surfacefocused(bool on);
    void startselection(const QPoint& at);
    void dragselection(const QPoint& at);
    void showplace(const QPoint& at);
    void movehairs(int dx, int dy);
    void steparrow(int dx, int dy);
    void stereoathairs();
    bool arrowpressed(int key);
    void escapepressed();

    OpenPicture* entry;
    SurfaceView* surface;
    std::vector<std::unique_ptr<PictureTool>> tools;
    QSizeGrip* grip; ///< in the corner between the bars
    QPoint selectionstart, selectionend;
    QString selectiontext;
    bool inFocus = false;
    bool middleasked = false; ///< show the middle as soon as the window has its size
};

/// Gives every open picture a window, by the procedure that puts a widget into the main window.
/// The window that shows a picture, or none: `windowof`.
void connectpicturewindows(const std::function<void(QWidget*)>& addpicture);
frmPic* windowof(const OpenPicture& picture);
