#include "app/windows/statusbar.h"

#include "base/settings.h"

#include <QEvent>
#include <QFrame>
#include <QPainter>

#include <algorithm>

// All in device-independent pixels.
static constexpr int rightmargin = 140 / unitsperpixel;
static constexpr int narrowwindow = 1000 / unitsperpixel;
static constexpr int lampside = 11;
static constexpr int spacing = 8;
static constexpr int leastlabel1 = 96;
static constexpr int label1step = 48;
static constexpr int leastbar = 60;
static constexpr int greatestbar = 160;

void StatusLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QRect place = contentsRect();
    const QString shown = fontMetrics().elidedText(text(), Qt::ElideRight, place.width());
    setToolTip(shown == text() ? QString() : text());
    painter.setPen(palette().color(foregroundRole()));
    painter.drawText(place, int(alignment()) | Qt::TextSingleLine, shown);
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

StatusBar::StatusBar(QWidget* parent) : QWidget(parent), label1width(leastlabel1)
{
    setObjectName(QStringLiteral("Picture2"));
    Label2 = new StatusLabel(this);
    Label2->setObjectName(QStringLiteral("Label2"));
    Label2->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    Label1 = new StatusLabel(QStringLiteral("Prêt"), this);
    Label1->setObjectName(QStringLiteral("Label1"));
    Label1->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    const std::array<QString, 3> names{QStringLiteral("Rx"), QStringLiteral("Tx"),
                                       QStringLiteral("GPS")};
    for (std::size_t i = 0; i < names.size(); ++i) {
        Shape2[i] = new Lamp(this);
        Shape2[i]->setObjectName(QStringLiteral("Shape2_%1").arg(i));
        Label3[i] = new QLabel(names[i], this);
        Label3[i]->setObjectName(QStringLiteral("Label3_%1").arg(i));
    }
    for (std::size_t i = Shape1.size(); i-- > 0;) { // the bar above its frame
        Shape1[i] = new QFrame(this);
        Shape1[i]->setObjectName(QStringLiteral("Shape1_%1").arg(i));
        Shape1[i]->hide();
    }
    Shape1[1]->setFrameStyle(QFrame::Box | QFrame::Plain);
    Shape1[0]->setAutoFillBackground(true);
    Shape1[0]->setBackgroundRole(QPalette::Highlight);
    setFixedHeight(std::max(26, fontMetrics().height() + 10));
}

void StatusBar::settext1(const QString& text)
{
    Label1->setText(text);
    // In coarse steps, so that a moving cursor hardly ever moves the panels.
    const int wanted = fontMetrics().horizontalAdvance(text) + 2;
    const int rounded = (wanted + label1step - 1) / label1step * label1step;
    if (rounded != label1width) {
        label1width = std::max(leastlabel1, rounded);
        layoutpanels();
    }
}

void StatusBar::settext2(const QString& text)
{
    Label2->setText(text);
}

void StatusBar::setprogress(int percent)
{
    shownpercent = percent;
    if (percent > 0 && !isVisible())
        return;
    for (QFrame* shape : Shape1)
        shape->setVisible(percent > 0);
    layoutpanels();
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
    QWidget::resizeEvent(event);
    layoutpanels();
}

void StatusBar::layoutpanels()
{
    // From the right edge to the left; the text on the left takes what remains.
    const int full = height() - 1;
    const int width1 = std::min(label1width, std::max(leastlabel1, width() * 3 / 5));
    int x = width() - rightmargin - width1;
    Label1->setGeometry(x, 1, width1, full);
    x -= spacing;
    for (std::size_t i = Shape2.size(); i-- > 0;) {
        const int textwidth = fontMetrics().horizontalAdvance(Label3[i]->text()) + 2;
        x -= textwidth;
        Label3[i]->setGeometry(x, 1, textwidth, full);
        x -= lampside + 4;
        Shape2[i]->setGeometry(x, (height() - lampside) / 2 + 1, lampside, lampside);
        x -= spacing;
    }
    if (shownpercent > 0) {
        const int frame = std::clamp(width() / 6, leastbar, greatestbar);
        x -= frame;
        const QRect place(x, 6, frame, height() - 11);
        Shape1[1]->setGeometry(place);
        Shape1[0]->setGeometry(place.x(), place.y(), place.width() * shownpercent / 100,
                               place.height());
        x -= spacing;
    }
    Label2->setGeometry(spacing, 1, std::max(0, x - 2 * spacing), full);
}

void StatusBar::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawLine(0, 0, width(), 0);
}
