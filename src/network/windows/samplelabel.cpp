#include "network/windows/samplelabel.h"

#include "base/paint/colour.h"

#include <QPainter>

SampleLabel::SampleLabel(QWidget* parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("sample"));
    setAccessibleName(QStringLiteral("Exemple"));
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void SampleLabel::setlook(const Look& wanted)
{
    look = wanted;
    setAccessibleDescription(look.name);
    updateGeometry();
    update();
}

QSize SampleLabel::sizeHint() const
{
    constexpr int margin = 8; // pixels around the label
    const QFontMetrics metrics(look.font);
    return {metrics.horizontalAdvance(QLatin1Char('W')) * 16, metrics.height() + 2 * margin};
}

/// A colour with nothing left of it but half its brightness.
static QColor greyed(const QColor& colour)
{
    const int grey = (qGray(colour.rgb()) + 2 * 140) / 3;
    return QColor(grey, grey, grey);
}

void SampleLabel::paintEvent(QPaintEvent*)
{
    static const QColor relief(136, 150, 108);
    const auto shown = [this](const QColor& colour) {
        return isEnabled() ? colour : greyed(colour);
    };
    QPainter painter(this);
    painter.fillRect(rect(), shown(relief));
    painter.setPen(palette().color(QPalette::Dark));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    const QFontMetrics metrics(look.font);
    QRect label(QPoint(0, 0), QSize(metrics.horizontalAdvance(look.name), metrics.height()));
    label.moveCenter(rect().center());
    if (!look.transparent)
        painter.fillRect(label, shown(colorof(look.backcolour)));
    painter.setFont(look.font);
    painter.setPen(shown(colorof(look.forecolour)));
    painter.drawText(label.left(), label.top() + metrics.ascent(), look.name);
}
