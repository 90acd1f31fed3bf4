#include "app/windows/toolbar.h"

#include <QAction>
#include <QEvent>
#include <QFile>
#include <QFrame>
#include <QPainter>
#include <QPalette>

#include <algorithm>
#include <string_view>

/// An image of the toolbar: the menu entry that it runs and its drawing.
struct ToolImage {
    const char* action;
    const char* icon;
};

static constexpr std::array<ToolImage, ToolBar::imagecount> toolimages{{
    {"mnuFileNewNet", "newnet"},
    {"mnuFileOpenNet", "opennet"},
    {"mnuFileSaveNet", "savenet"},
    {"mnuFileNetPro", "netproperties"},
    {"mnuFileOpenMap", "openmap"},
    {"mnuFileSaveMap", "savemap"},
    {"mnuFileMapPro", "mapproperties"},
    {"mnuFileNewPic", "newpicture"},
    {"mnuFileOpenPic", "openpicture"},
    {"mnuFileSavePic", "savepicture"},
    {"mnuFilePicPro", "pictureproperties"},
    {"mnuFilePrint", "print"},
    {"mnuEditCopy", "copy"},
    {"mnuEditPaste", "paste"},
    {"mnuViewGPS", "gps"},
    {"mnuEditUnit", "stationproperties"},
    {"mnuViewLink", "link"},
    {"mnuViewShowNets", "shownets"},
    {"mnuStop", "stop"},
}};

/// Images with a wider gap, and a separator, behind them.
static constexpr std::array<int, 5> groupends{4, 7, 11, 12, 14};

// All in device-independent pixels.
static constexpr int iconside = 24;
static constexpr int buttonside = 30;
static constexpr int buttonstep = 31;
static constexpr int gapwidth = 9;
static constexpr int barmargin = 3;

static bool isdark(const QPalette& palette)
{
    return palette.color(QPalette::Window).lightness() < 128;
}

/// The drawing in the colours of a dark desktop: inks and papers change places.
static QByteArray darkened(QByteArray svg)
{
    static constexpr std::array<std::array<std::string_view, 2>, 4> colours{{
        {"#33475b", "#dce4ec"},
        {"#d3e6f9", "#3d556d"},
        {"#ffffff", "#2b3640"},
        {"#fbdc97", "#8a6d2f"},
    }};
    for (const auto& [light, dark] : colours)
        svg.replace(QByteArray::fromRawData(light.data(), qsizetype(light.size())),
                    QByteArray::fromRawData(dark.data(), qsizetype(dark.size())));
    return svg;
}

/// Caption as a tool tip: without the shortcut letter's mark and dots.
static QString tooltext(QString caption)
{
    return caption.remove(QLatin1Char('&')).remove(QStringLiteral("...")).trimmed();
}

ToolButton::ToolButton(const char* icon, QAction* action, QWidget* parent)
    : QAbstractButton(parent), iconname(QString::fromLatin1(icon)), target(action)
{
    setFocusPolicy(Qt::NoFocus); // the keyboard stays with the picture
    setAttribute(Qt::WA_Hover);
    loadicon();
    followaction();
    connect(target, &QAction::changed, this, &ToolButton::followaction);
    connect(this, &QAbstractButton::clicked, target, &QAction::trigger);
}

void ToolButton::loadicon()
{
    QFile file(QStringLiteral(":/icons/toolbar/%1.svg").arg(iconname));
    if (!file.open(QIODevice::ReadOnly))
        return;
    const QByteArray svg = file.readAll();
    drawing.load(isdark(palette()) ? darkened(svg) : svg);
}

void ToolButton::followaction()
{
    const QString text = tooltext(target->text());
    setToolTip(text);
    setAccessibleName(text);
    setEnabled(target->isEnabled());
}

QSize ToolButton::sizeHint() const
{
    return {buttonside, buttonside};
}

void ToolButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const bool pressed = isDown();
    if (isEnabled() && (pressed || underMouse())) {
        const bool dark = isdark(palette());
        const QColor edge = dark ? QColor(255, 255, 255, 60) : QColor(0, 0, 0, 70);
        const QColor face =
            pressed ? QColor(0, 0, 0, dark ? 90 : 38) : QColor(255, 255, 255, dark ? 28 : 190);
        painter.setPen(edge);
        painter.setBrush(face);
        painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);
        painter.setPen(pressed ? QColor(0, 0, 0, 60) : QColor(255, 255, 255, dark ? 40 : 255));
        painter.drawLine(QPointF(4.5, 1.5), QPointF(width() - 4.5, 1.5));
    }
    if (!isEnabled())
        painter.setOpacity(0.35);
    const double inset = (buttonside - iconside) / 2.0;
    const double shift = pressed ? 1 : 0;
    drawing.render(&painter, QRectF(inset + shift, inset + shift, iconside, iconside));
}

void ToolButton::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::PaletteChange)
        loadicon();
    QAbstractButton::changeEvent(event);
}

void ToolButton::enterEvent(QEnterEvent* event)
{
    update();
    QAbstractButton::enterEvent(event);
}

void ToolButton::leaveEvent(QEvent* event)
{
    update();
    QAbstractButton::leaveEvent(event);
}

ToolBar::ToolBar(const std::function<QAction*(const char*)>& action, QWidget* parent)
    : QWidget(parent)
{
    setObjectName(QStringLiteral("toolbar"));
    setFixedHeight(buttonside + 2 * barmargin);
    for (std::size_t i = 0; i < buttons.size(); ++i) {
        buttons[i] = new ToolButton(toolimages[i].icon, action(toolimages[i].action), this);
        buttons[i]->setObjectName(QStringLiteral("button%1").arg(i));
    }
    for (std::size_t i = 0; i < separators.size(); ++i) {
        separators[i] = new QFrame(this);
        separators[i]->setObjectName(QStringLiteral("separator%1").arg(i));
        separators[i]->setFrameStyle(QFrame::VLine | QFrame::Sunken);
    }
    setbusy(false);
}

void ToolBar::setbusy(bool busy)
{
    for (std::size_t i = 0; i < buttons.size(); ++i)
        buttons[i]->setVisible(busy == (i == stopimage));
    for (QFrame* line : separators)
        line->setVisible(!busy);
}

QSize ToolBar::sizeHint() const
{
    return {2 * barmargin + imagecount * buttonstep + int(groupends.size()) * gapwidth,
            buttonside + 2 * barmargin};
}

void ToolBar::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    layoutimages();
}

void ToolBar::layoutimages()
{
    int x = barmargin;
    std::size_t line = 0;
    for (int i = 0; i < imagecount; ++i) {
        // Stop stays in reach in a window too narrow for the whole strip.
        const int left = i == stopimage ? std::max(0, std::min(x, width() - buttonstep)) : x;
        buttons[static_cast<std::size_t>(i)]->setGeometry(left, barmargin, buttonside, buttonside);
        x += buttonstep;
        if (line < groupends.size() && i == groupends[line]) {
            separators[line]->setGeometry(x + gapwidth / 2 - 1, barmargin + 4, 2, buttonside - 8);
            x += gapwidth;
            ++line;
        }
    }
}

void ToolBar::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawLine(0, height() - 1, width(), height() - 1);
}
