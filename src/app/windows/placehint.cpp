#include "app/windows/placehint.h"

#include "network/tables.h"
#include "pictures/paint/openpictures.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QStyle>
#include <QToolButton>

#include <algorithm>

PlaceHint::PlaceHint(QWidget* area) : QFrame(area)
{
    setObjectName(QStringLiteral("placehint"));
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::ToolTipBase);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(12, 6, 6, 6);
    auto* text =
        new QLabel(QStringLiteral("Aucune station n'est placée : bouton droit sur l'image, "
                                  "« Placer ici »."),
                   this);
    text->setForegroundRole(QPalette::ToolTipText);
    row->addWidget(text);
    auto* close = new QToolButton(this);
    close->setObjectName(QStringLiteral("close"));
    close->setAutoRaise(true);
    close->setIcon(style()->standardIcon(QStyle::SP_TitleBarCloseButton));
    close->setAccessibleName(QStringLiteral("Fermer"));
    close->setFocusPolicy(Qt::NoFocus); // the keyboard stays with the picture
    row->addWidget(close);
    connect(close, &QToolButton::clicked, this, [this] {
        dismissed = true;
        hide();
    });
    area->installEventFilter(this);
    hide();
}

void PlaceHint::refresh()
{
    const bool carried =
        std::any_of(openpictures.begin(), openpictures.end(), [](const auto& open) {
            return open->data.isplaced() && !open->data.isworld() && !open->data.isstereo();
        });
    const bool placed =
        std::any_of(network.units.begin() + 1, network.units.end(),
                    [](const Unit& unit) { return unit.lon != 0 || unit.lat != 0; });
    const bool wanted = carried && !placed && !dismissed;
    if (wanted == isVisible())
        return;
    settle();
    setVisible(wanted);
    raise();
}

/// In the middle of the area's foot.
void PlaceHint::settle()
{
    constexpr int margin = 12; // pixels
    adjustSize();
    const QRect area = parentWidget()->rect();
    move(std::max(0, area.center().x() - width() / 2),
         std::max(0, area.bottom() - height() - margin));
}

bool PlaceHint::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize)
        settle();
    return QFrame::eventFilter(watched, event);
}
