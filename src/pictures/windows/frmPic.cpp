#include "pictures/windows/frmPic.h"

#include "base/hooks.h"
#include "base/operation.h"
#include "base/session.h"
#include "coordinates/positiontexts.h"
#include "pictures/georeference.h"
#include "pictures/layout.h"
#include "pictures/paint/cursor.h"
#include "pictures/paint/zoom.h"
#include "pictures/windows/surfaceview.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QMdiSubWindow>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOptionSizeGrip>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <optional>

std::vector<PictureToolMaker> picturetoolmakers;

namespace
{

/// The picture window that had the keyboard last. When it gets it back from a menu or a dialog, the
/// status line keeps what that has told.
QPointer<const frmPic> activewindow;

struct Position {
    float lon, lat;
};

std::optional<Position> positionat(const Picture& picture, const QPointF& at)
{
    Position position{};
    if (!pic2ll(picture, static_cast<float>(at.x()), static_cast<float>(at.y()), position.lon,
                position.lat))
        return std::nullopt;
    return position;
}

QScrollBar* makebar(Qt::Orientation orientation, const QString& name, QWidget* parent)
{
    constexpr int page = 10; // pixels; what a press beside the slider moves
    auto* bar = new QScrollBar(orientation, parent);
    bar->setObjectName(name);
    bar->setPageStep(page);
    bar->hide();
    return bar;
}

} // namespace

frmPic::frmPic(OpenPicture& shown, QWidget* parent)
    : QWidget(parent), entry(&shown), Picture1(new SurfaceView(shown, this)),
      HScroll1(makebar(Qt::Horizontal, QStringLiteral("HScroll1"), this)),
      VScroll1(makebar(Qt::Vertical, QStringLiteral("VScroll1"), this)), Picture2(new QWidget(this))
{
    for (const PictureToolMaker& make : picturetoolmakers)
        tools.push_back(make(shown, Picture1));
    setObjectName(QStringLiteral("frmPic"));
    setAttribute(Qt::WA_DeleteOnClose);
    setFocusProxy(Picture1);
    Picture2->setObjectName(QStringLiteral("Picture2"));
    Picture2->setCursor(Qt::SizeFDiagCursor);
    Picture2->setAutoFillBackground(true);
    Picture2->installEventFilter(this);
    Picture2->hide();
    connect(Picture1, &SurfaceView::pressed, this, &frmPic::surfacepressed);
    connect(Picture1, &SurfaceView::moved, this, &frmPic::surfacemoved);
    connect(Picture1, &SurfaceView::released, this, [this](const QMouseEvent* event) {
        offered([event](PictureTool& tool) { return tool.released(*event); });
    });
    connect(Picture1, &SurfaceView::doubleclicked, this, [this](QMouseEvent* event) {
        if (entry != nullptr &&
            !offered([event](PictureTool& tool) { return tool.doubleclicked(*event); }))
            surfacepressed(event);
    });
    connect(Picture1, &SurfaceView::focused, this, &frmPic::surfacefocused);
    connect(HScroll1, &QScrollBar::valueChanged, this,
            [this](int value) { Picture1->move(-value, Picture1->y()); });
    connect(VScroll1, &QScrollBar::valueChanged, this,
            [this](int value) { Picture1->move(Picture1->x(), -value); });
    refresh({});
    fitpic();
}

QSize frmPic::sizeHint() const
{
    return entry == nullptr ? QSize() : entry->surface.kept.size();
}

void frmPic::fitpic()
{
    if (entry == nullptr || isMinimized())
        return;
    const QSize size = entry->surface.kept.size();
    const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    const PictureLayout layout = layoutpicture(width(), height(), size.width(), size.height(), bar,
                                               Picture1->x(), Picture1->y());
    Picture1->setGeometry(QRect(QPoint(layout.left, layout.top), size));
    HScroll1->setVisible(layout.hscroll);
    VScroll1->setVisible(layout.vscroll);
    if (layout.vscroll) {
        VScroll1->setGeometry(width() - bar, 0, bar, layout.visibleheight);
        VScroll1->setRange(0, size.height() - layout.visibleheight);
        VScroll1->setValue(-layout.top);
        Picture1->move(Picture1->x(), -VScroll1->value());
    }
    if (layout.hscroll) {
        HScroll1->setGeometry(0, height() - bar, layout.visiblewidth, bar);
        HScroll1->setRange(0, size.width() - layout.visiblewidth);
        HScroll1->setValue(-layout.left);
        Picture1->move(-HScroll1->value(), Picture1->y());
    }
    Picture2->setVisible(layout.hscroll && layout.vscroll);
    Picture2->setGeometry(width() - bar, height() - bar, bar, bar);
    Picture1->setFocus();
}

void frmPic::showmiddle()
{
    middleasked = !isVisible();
    if (!VScroll1->isHidden())
        VScroll1->setValue(VScroll1->maximum() / 2);
    if (!HScroll1->isHidden())
        HScroll1->setValue(HScroll1->maximum() / 2);
}

void frmPic::refresh(const QRect& part)
{
    if (entry == nullptr)
        return;
    if (part.isEmpty()) {
        Picture1->update();
        Picture1->setEnabled(entry->enabled);
        setWindowTitle(QString::fromStdString(entry->caption));
    } else {
        Picture1->update(part);
    }
}

void frmPic::release()
{
    settletools();
    entry = nullptr;
    Picture1->release();
}

void frmPic::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    fitpic();
}

void frmPic::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
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

bool frmPic::offered(const std::function<bool(PictureTool&)>& offer)
{
    return std::any_of(tools.begin(), tools.end(),
                       [&offer](const auto& tool) { return offer(*tool); });
}

void frmPic::settletools()
{
    for (const auto& tool : tools)
        tool->settle();
}

void frmPic::startselection(const QPoint& at)
{
    entry->marks.Shape2 = false;
    selectionstart = selectionend = at;
    selectiontext.clear();
    hooks.setlabel2({});
}

void frmPic::surfacepressed(QMouseEvent* event)
{
    if (entry == nullptr || offered([event](PictureTool& tool) { return tool.pressed(*event); }))
        return;
    inFocus = true;
    const QPoint at = event->position().toPoint();
    pictureclicked(at, event->button() == Qt::RightButton,
                   event->modifiers().testFlag(Qt::ShiftModifier));
}

void frmPic::pictureclicked(const QPoint& at, bool right, bool shift)
{
    if (const auto position = positionat(entry->data, at)) {
        if (entry->marks.Shape2 && right) {
            if (shift) {
                dragselection(at);
                showplace(at);
            }
            if (shift || !offerzoom(at))
                return;
        }
        startselection(at);
        movecursor(position->lon, position->lat);
    }
    if (opbusy == 0)
        stereocursor(*entry, static_cast<float>(at.x()), static_cast<float>(at.y()), 0, false);
}

/// Asks whether the selection shall become a picture of its own, when the press lies in it. True
/// when it did.
bool frmPic::offerzoom(const QPoint& at)
{
    const QRect part = entry->marks.selection;
    const QRect withedges = part.adjusted(0, 0, 1, 1);
    if (!withedges.contains(at))
        return false;
    const Answer answer = hooks.askuser({"Créer une image \"zoom\" à partir de la sélection?",
                                         Question::Buttons::yesno, Question::Icon::question});
    if (answer != Answer::yes || entry == nullptr)
        return false;
    zoompicture(*entry, part);
    return true;
}

void frmPic::dragselection(const QPoint& at)
{
    constexpr int leastheight = 6; // pixels of a selection that counts
    constexpr int leastwidth = 4;
    selectionend = QPoint(std::clamp(at.x(), 0, entry->surface.width()),
                          std::clamp(at.y(), 0, entry->surface.height()));
    const int w = std::abs(selectionend.x() - selectionstart.x());
    const int h = std::abs(selectionend.y() - selectionstart.y());
    entry->marks.Shape2 = h >= leastheight && w >= leastwidth;
    selectiontext.clear();
    if (entry->marks.Shape2) {
        entry->marks.selection = QRect(std::min(selectionstart.x(), selectionend.x()),
                                       std::min(selectionstart.y(), selectionend.y()), w, h);
        selectiontext = QStringLiteral(" Sélection L=%1 H=%2").arg(w).arg(h);
    }
    Picture1->update();
}

void frmPic::surfacemoved(QMouseEvent* event)
{
    if (entry == nullptr)
        return;
    if (offered([event](PictureTool& tool) { return tool.dragged(*event); }))
        return;
    if (event->buttons() == Qt::NoButton &&
        !offered([event](PictureTool& tool) { return tool.showpointer(event->position()); }))
        Picture1->setCursor(Qt::CrossCursor);
    const QPoint at = event->position().toPoint();
    if (event->buttons() != Qt::NoButton && inFocus && entry->data.Pictype < pictype::view3d &&
        opbusy == 0)
        dragselection(at);
    showplace(at);
}

/// Tells in the status line where the mouse is, and how large the selection.
void frmPic::showplace(const QPoint& at)
{
    std::string text;
    if (session.mousecoordinates) {
        if (auto position = positionat(entry->data, at))
            text = dmslon(position->lon) + "  " + dmslat(position->lat);
    }
    if (entry->marks.Shape2)
        text += selectiontext.toStdString();
    if (!text.empty())
        hooks.setlabel2(text);
}

void frmPic::movehairs(int dx, int dy)
{
    const QPoint crossing(entry->marks.vertical.x1() + dx, entry->marks.horizontal.y1() + dy);
    if (const auto position = positionat(entry->data, crossing))
        movecursor(position->lon, position->lat);
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

void frmPic::keyPressEvent(QKeyEvent* event)
{
    if (entry == nullptr)
        return;
    const bool keypad = event->modifiers().testFlag(Qt::KeypadModifier);
    const int key = event->key();
    if (key == Qt::Key_Escape) {
        if (offered([](PictureTool& tool) { return tool.escape(); }))
            return;
        if (opbusy > 0)
            opbusy = 0;
        hidecursor(*entry);
    } else if (key == Qt::Key_Left) {
        steparrow(-1, 0);
    } else if (key == Qt::Key_Right) {
        steparrow(1, 0);
    } else if (key == Qt::Key_Up) {
        steparrow(0, -1);
    } else if (key == Qt::Key_Down) {
        steparrow(0, 1);
    } else if (keypad && (key == Qt::Key_Plus || key == Qt::Key_Minus)) {
        stereocursor(*entry, 0, 0, key == Qt::Key_Plus ? 1.0F : -1.0F, true);
    } else {
        stereoathairs();
        QWidget::keyPressEvent(event);
    }
}

/// The wheel moves the picture under its window.
void frmPic::wheelEvent(QWheelEvent* event)
{
    constexpr int step = 60; // pixels a notch
    const bool across = event->modifiers().testFlag(Qt::ShiftModifier);
    const QPoint notches = event->angleDelta() * step / QWheelEvent::DefaultDeltasPerStep;
    QScrollBar* bar = across ? HScroll1 : VScroll1;
    bar->setValue(bar->value() - notches.y());
    HScroll1->setValue(HScroll1->value() - notches.x());
}

QWidget* frmPic::outerwindow()
{
    auto* inmain = qobject_cast<QMdiSubWindow*>(parentWidget());
    return inmain != nullptr ? inmain : static_cast<QWidget*>(this);
}

void frmPic::draggedgrip(const QPoint& by)
{
    QWidget* outer = outerwindow();
    if (!outer->isMaximized())
        outer->resize(outer->width() + by.x(), outer->height() + by.y());
}

void frmPic::paintgrip()
{
    QPainter painter(Picture2);
    QStyleOptionSizeGrip option;
    option.initFrom(Picture2);
    option.corner = Qt::BottomRightCorner;
    if (!outerwindow()->isMaximized())
        style()->drawControl(QStyle::CE_SizeGrip, &option, &painter, Picture2);
}

bool frmPic::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == Picture2 && event->type() == QEvent::Paint) {
        paintgrip();
        return true;
    }
    if (watched == Picture2 && event->type() == QEvent::MouseButtonPress)
        grippress = static_cast<QMouseEvent*>(event)->position().toPoint();
    if (watched == Picture2 && event->type() == QEvent::MouseButtonRelease)
        draggedgrip(static_cast<QMouseEvent*>(event)->position().toPoint() - grippress);
    return QWidget::eventFilter(watched, event);
}
