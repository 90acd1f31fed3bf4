#include "app/windows/statusbar.h"

#include "base/settings.h"

#include <QLayout>
#include <QPainter>
#include <QProgressBar>

#include <algorithm>

// All in device-independent pixels.
static constexpr int rightmargin = 140 / unitsperpixel;
static constexpr int narrowwindow = 1000 / unitsperpixel;
static constexpr int lampside = 11;
static constexpr int leastplace = 96;
static constexpr int placestep = 48;
static constexpr int leastbar = 60;
static constexpr int greatestbar = 160;

void StatusLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QRect room = contentsRect();
    const QString shown = fontMetrics().elidedText(text(), Qt::ElideRight, room.width());
    setToolTip(shown == text() ? QString() : text());
    painter.setPen(palette().color(foregroundRole()));
    painter.drawText(room, int(alignment()) | Qt::TextSingleLine, shown);
}

void Lamp::setcolour(const QColor& next)
{
    if (next == current)
        return;
    current = next;
    update();
}

void Lamp::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(current.darker(160), 1));
    painter.setBrush(current);
    painter.drawEllipse(QRectF(rect()).adjusted(0.75, 0.75, -0.75, -0.75));
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(255, 255, 255, 70));
    painter.drawEllipse(QRectF(width() * 0.25, height() * 0.2, width() * 0.35, height() * 0.3));
}

StatusBar::StatusBar(QWidget* parent) : QStatusBar(parent), placewidth(leastplace)
{
    setObjectName(QStringLiteral("statusbar"));
    setSizeGripEnabled(false);
    setContentsMargins(0, 0, rightmargin, 0);
    setFixedHeight(std::max(26, fontMetrics().height() + 10));
    text = new StatusLabel(this);
    text->setObjectName(QStringLiteral("text"));
    addWidget(text, 1);
    progress = new QProgressBar(this);
    progress->setObjectName(QStringLiteral("progress"));
    progress->setTextVisible(false);
    addPermanentWidget(progress);
    progress->hide();
    makelamps();
    place = new StatusLabel(QStringLiteral("Prêt"), this);
    place->setObjectName(QStringLiteral("place"));
    addPermanentWidget(place);
    fitpanels();
}

void StatusBar::makelamps()
{
    const std::array<QString, 3> names{QStringLiteral("Rx"), QStringLiteral("Tx"),
                                       QStringLiteral("GPS")};
    for (std::size_t i = 0; i < names.size(); ++i) {
        lamps[i] = new Lamp(this);
        lamps[i]->setObjectName(QStringLiteral("lamp%1").arg(i));
        lamps[i]->setFixedSize(lampside, lampside);
        lampnames[i] = new QLabel(names[i], this);
        lampnames[i]->setObjectName(QStringLiteral("lampname%1").arg(i));
        addPermanentWidget(lamps[i]);
        addPermanentWidget(lampnames[i]);
    }
}

void StatusBar::setplace(const QString& shown)
{
    place->setText(shown);
    // In coarse steps, so that a moving cursor hardly ever moves the panels.
    const int wanted = fontMetrics().horizontalAdvance(shown) + 2;
    placewidth = std::max(leastplace, (wanted + placestep - 1) / placestep * placestep);
    fitpanels();
    layout()->activate();
}

void StatusBar::settext(const QString& shown)
{
    text->setText(shown);
}

void StatusBar::setprogress(int percent)
{
    if (percent > 0 && !isVisible())
        return;
    progress->setValue(percent);
    progress->setVisible(percent > 0);
}

void StatusBar::setwanted(bool wanted)
{
    userwants = wanted;
    fitwindow(windowwidth_px);
}

void StatusBar::fitwindow(int windowwidth)
{
    windowwidth_px = windowwidth;
    setVisible(userwants && windowwidth >= narrowwindow);
}

void StatusBar::resizeEvent(QResizeEvent* event)
{
    QStatusBar::resizeEvent(event);
    fitpanels();
}

/// The panels on the right take their shares; the text on the left has what remains.
void StatusBar::fitpanels()
{
    place->setFixedWidth(std::min(placewidth, std::max(leastplace, width() * 3 / 5)));
    progress->setFixedSize(std::clamp(width() / 6, leastbar, greatestbar), height() - 11);
}

/// A line above the strip; its panels have no frames.
void StatusBar::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawLine(0, 0, width(), 0);
}
