#include "pictures/windows/frmPic.h"

#include "base/hooks.h"
#include "base/operation.h"
#include "pictures/georeference.h"
#include "pictures/paint/cursor.h"
#include "pictures/windows/surfaceview.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QScrollBar>
#include <QSizeGrip>
#include <QWheelEvent>

std::vector<PictureToolMaker> picturetoolmakers;

namespace
{

/// The picture window that had the keyboard last. When it gets it back from a menu or a dialog, the
/// status line keeps what that has told.
QPointer<const frmPic> activewindow;

} // namespace

frmPic::frmPic(OpenPicture& shown, QWidget* parent)
    : QScrollArea(parent), entry(&shown), surface(new SurfaceView(shown, this))
{
    for (const PictureToolMaker& make : picturetoolmakers)
        tools.push_back(make(shown, surface));
    setObjectName(QStringLiteral("frmPic"));
    setAttribute(Qt::WA_DeleteOnClose);
    setFrameShape(QFrame::NoFrame);
    setAlignment(Qt::AlignCenter);
    setFocusProxy(surface);
    setWidget(surface);
    horizontalScrollBar()->setObjectName(QStringLiteral("acrossbar"));
    verticalScrollBar()->setObjectName(QStringLiteral("downbar"));
    grip = new QSizeGrip(this);
    grip->setObjectName(QStringLiteral("grip"));
    grip->hide();
    connectsurface();
    refresh({});
    fitpic();
}

void frmPic::connectsurface()
{
    connect(surface, &SurfaceView::pressed, this, &frmPic::surfacepressed);
    connect(surface, &SurfaceView::moved, this, &frmPic::surfacemoved);
    connect(surface, &SurfaceView::released, this, [this](const QMouseEvent* event) {
        offered([event](PictureTool& tool) { return tool.released(*event); });
    });
    connect(surface, &SurfaceView::doubleclicked, this, [this](QMouseEvent* event) {
        if (entry != nullptr &&
            !offered([event](PictureTool& tool) { return tool.doubleclicked(*event); }))
            surfacepressed(event);
    });
    connect(surface, &SurfaceView::focused, this, &frmPic::surfacefocused);
}

QSize frmPic::sizeHint() const
{
    return entry == nullptr ? QSize() : entry->surface.kept.size();
}

void frmPic::fitpic()
{
    if (entry == nullptr)
        return;
    surface->resize(entry->surface.kept.size());
    fitbars();
    surface->setFocus();
}

/// A press beside the slider moves the picture by little, and the corner has its grip only between
/// two bars; the scroll area by itself would move by a window and keep the corner free beside one.
void frmPic::fitbars()
{
    constexpr int page = 10; // pixels
    horizontalScrollBar()->setPageStep(page);
    verticalScrollBar()->setPageStep(page);
    const bool both = horizontalScrollBar()->maximum() > 0 && verticalScrollBar()->maximum() > 0;
    QWidget* corner = both ? grip : nullptr;
    if (cornerWidget() != corner)
        setCornerWidget(corner);
}

void frmPic::showmiddle()
{
    QCoreApplication::sendPostedEvents(this, QEvent::LayoutRequest); // the bars' ranges are final
    middleasked = !isVisible();
    for (QScrollBar* bar : {horizontalScrollBar(), verticalScrollBar()})
        bar->setValue(bar->maximum() / 2);
}

void frmPic::refresh(const QRect& part)
{
    if (entry == nullptr)
        return;
    if (part.isEmpty()) {
        surface->update();
        surface->setEnabled(entry->enabled);
        setWindowTitle(QString::fromStdString(entry->caption));
    } else {
        surface->update(part);
    }
}

void frmPic::release()
{
    settletools();
    entry = nullptr;
    surface->release();
}

bool frmPic::event(QEvent* event)
{
    const bool taken = QScrollArea::event(event);
    if (event->type() == QEvent::LayoutRequest)
        fitbars(); // bars that came or went
    return taken;
}

void frmPic::resizeEvent(QResizeEvent* event)
{
    QScrollArea::resizeEvent(event);
    fitpic();
}

void frmPic::showEvent(QShowEvent* event)
{
    QScrollArea::showEvent(event);
    fitpic();
    if (middleasked)
        showmiddle();
}

void frmPic::closeEvent(QCloseEvent* event)
{
    if (entry != nullptr && opbusy > 0) {
        opbusy = 0; // the first close only stops the work
        event->ignore();
        return;
    }
    if (OpenPicture* closing = entry) {
        release();
        closepicture(*closing);
    }
    event->accept();
}

void frmPic::surfacefocused(bool on)
{
    if (!on) {
        inFocus = false;
        settletools();
    } else if (entry != nullptr && opbusy == 0 && activewindow != this) {
        activewindow = this;
        hooks.setlabel2(entry->data.source);
    }
}

void frmPic::movehairs(int dx, int dy)
{
    float lon = 0;
    float lat = 0;
    if (pic2ll(entry->data, static_cast<float>(entry->marks.vertical.x1() + dx),
               static_cast<float>(entry->marks.horizontal.y1() + dy), lon, lat))
        movecursor(lon, lat);
}

void frmPic::steparrow(int dx, int dy)
{
    if (entry->data.Pictype == pictype::view3d)
        stepcursor(dx, -dy);
    else
        movehairs(dx, dy);
    stereoathairs();
}

void frmPic::stereoathairs()
{
    if (opbusy == 0)
        stereocursor(*entry, static_cast<float>(entry->marks.vertical.x1()),
                     static_cast<float>(entry->marks.horizontal.y1()), 0, false);
}

bool frmPic::arrowpressed(int key)
{
    switch (key) {
    case Qt::Key_Left:
        steparrow(-1, 0);
        return true;
    case Qt::Key_Right:
        steparrow(1, 0);
        return true;
    case Qt::Key_Up:
        steparrow(0, -1);
        return true;
    case Qt::Key_Down:
        steparrow(0, 1);
        return true;
    default:
        return false;
    }
}

void frmPic::escapepressed()
{
    if (offered([](PictureTool& tool) { return tool.escape(); }))
        return;
    opbusy = 0;
    hidecursor(*entry);
}

void frmPic::keyPressEvent(QKeyEvent* event)
{
    if (entry == nullptr)
        return;
    const bool keypad = event->modifiers().testFlag(Qt::KeypadModifier);
    const int key = event->key();
    if (key == Qt::Key_Escape) {
        escapepressed();
    } else if (keypad && (key == Qt::Key_Plus || key == Qt::Key_Minus)) {
        stereocursor(*entry, 0, 0, key == Qt::Key_Plus ? 1.0F : -1.0F, true);
    } else if (!arrowpressed(key)) {
        stereoathairs();
        QWidget::keyPressEvent(event); // not the scroll area's, which would scroll
    }
}

/// The wheel moves the picture under its window.
void frmPic::wheelEvent(QWheelEvent* event)
{
    constexpr int step = 60; // pixels a notch
    const bool across = event->modifiers().testFlag(Qt::ShiftModifier);
    const QPoint notches = event->angleDelta() * step / QWheelEvent::DefaultDeltasPerStep;
    QScrollBar* bar = across ? horizontalScrollBar() : verticalScrollBar();
    bar->setValue(bar->value() - notches.y());
    horizontalScrollBar()->setValue(horizontalScrollBar()->value() - notches.x());
}
