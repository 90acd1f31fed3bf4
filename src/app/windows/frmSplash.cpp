#include "app/windows/frmSplash.h"

#include "app/windows/icons.h"
#include "base/session.h"

#include <QGuiApplication>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QScreen>
#include <QSvgRenderer>

#include <array>

static constexpr int splashwidth = 460;
static constexpr int splashheight = 220;
static constexpr QRectF logoplace(32, 36, 112, 112);

frmSplash::frmSplash(QWidget* owner) : QWidget(owner, Qt::SplashScreen | Qt::FramelessWindowHint)
{
    setObjectName(QStringLiteral("frmSplash"));
    useicons();
    setWindowTitle(QString::fromUtf8(apptitle));
    setFixedSize(splashwidth, splashheight);
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    move(screen.center() - rect().center());
}

/// Three ridges of hills along the bottom, the nearest the darkest.
static void drawhills(QPainter& painter, const QRectF& room)
{
    static constexpr std::array<double, 3> tops{0.70, 0.80, 0.90};
    static constexpr std::array<QRgb, 3> colours{0xff86bf90, 0xff3f9367, 0xff256a49};
    for (std::size_t i = 0; i < tops.size(); ++i) {
        const double y = room.height() * tops[i];
        const double swing = room.height() * (i % 2 == 0 ? 0.12 : -0.10);
        QPainterPath ridge(QPointF(0, y));
        ridge.cubicTo(room.width() * 0.35, y - swing, room.width() * 0.65, y + swing, room.width(),
                      y - swing * 0.6);
        ridge.lineTo(room.bottomRight());
        ridge.lineTo(room.bottomLeft());
        ridge.closeSubpath();
        painter.fillPath(ridge, QColor::fromRgb(colours[i]));
    }
}

void frmSplash::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QLinearGradient sky(0, 0, 0, height());
    sky.setColorAt(0, QColor(0x12, 0x3a, 0x63));
    sky.setColorAt(1, QColor(0x3a, 0x93, 0xd6));
    painter.fillRect(rect(), sky);
    drawhills(painter, rect());

    QSvgRenderer logo(QStringLiteral(":/icons/velmora.svg"));
    logo.render(&painter, logoplace);

    painter.setPen(QPen(QColor(255, 255, 255, 150), 1.5));
    painter.drawRoundedRect(logoplace.adjusted(3, 3, -3, -3), 23, 23);

    painter.setPen(Qt::white);
    QFont large = font();
    large.setPixelSize(46);
    large.setBold(true);
    painter.setFont(large);
    painter.drawText(QRectF(168, 44, width() - 180, 60), Qt::AlignLeft | Qt::AlignVCenter,
                     QString::fromUtf8(apptitle));
    QFont small = font();
    small.setPixelSize(16);
    painter.setFont(small);
    painter.drawText(QRectF(170, 104, width() - 180, 26), Qt::AlignLeft | Qt::AlignVCenter,
                     QStringLiteral("Version %1").arg(QString::fromStdString(appversion())));
}
