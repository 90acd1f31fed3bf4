#include "app/windows/firststeps.h"

#include <QAction>
#include <QCommandLinkButton>
#include <QEvent>
#include <QIcon>
#include <QLabel>
#include <QVBoxLayout>

#include <algorithm>

FirstSteps::FirstSteps(const std::function<QAction*(const char*)>& action, QWidget* area)
    : QFrame(area)
{
    setObjectName(QStringLiteral("firststeps"));
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Base);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(20, 16, 20, 16);
    column->setSpacing(4);
    auto* title = new QLabel(QStringLiteral("Pour commencer"), this);
    QFont large = title->font();
    large.setPointSizeF(large.pointSizeF() * 1.4);
    large.setBold(true);
    title->setFont(large);
    column->addWidget(title);
    column->addSpacing(6);
    addstep(action("mnuFileOpenNet"), "opennet", QStringLiteral("Ouvrir des réseaux"),
            QStringLiteral("Un fichier .net ramène ses stations, sa carte et ses images."));
    addstep(action("mnuFileMapPro"), "mapproperties", QStringLiteral("Faire une carte"),
            QStringLiteral("Centre, taille et sources d'altitude ; «\u00A0Appliquer\u00A0» la "
                           "construit et la dessine."));
    addstep(action("mnuFileOpenMap"), "openmap", QStringLiteral("Ouvrir une carte"),
            QStringLiteral("Une carte .map déjà faite."));
    addstep(action("mnuFileNewPic"), "newpicture", QStringLiteral("Dessiner la carte"),
            QStringLiteral("Une image de la carte, même plate, porte stations et liens."));
    addstep(action("mnuEditUnit"), "stationproperties", QStringLiteral("Placer une station"),
            QStringLiteral("Bouton droit sur une image, «\u00A0Placer ici\u00A0» ; ou dans "
                           "l'éditeur, par une ville ou par des coordonnées."));
    area->installEventFilter(this);
    center();
}

void FirstSteps::addstep(QAction* action, const char* name, const QString& title,
                         const QString& what)
{
    auto* step = new QCommandLinkButton(title, what, this);
    step->setObjectName(QString::fromLatin1(name));
    step->setIcon(QIcon(QStringLiteral(":/icons/toolbar/%1.svg").arg(QString::fromLatin1(name))));
    step->setAccessibleDescription(what);
    const auto follow = [step, action] { step->setEnabled(action->isEnabled()); };
    connect(action, &QAction::changed, step, follow);
    connect(step, &QCommandLinkButton::clicked, action, &QAction::trigger);
    follow();
    layout()->addWidget(step);
    steps.push_back(step);
    descriptions.push_back(what);
}

/// In the middle of the area; without the descriptions where it is too low for them.
void FirstSteps::center()
{
    constexpr int letters = 60; // of a line
    const int wide = fontMetrics().averageCharWidth() * letters;
    for (std::size_t i = 0; i < steps.size(); ++i)
        steps[i]->setDescription(descriptions[i]);
    if (layout()->totalHeightForWidth(wide) > parentWidget()->height())
        for (QCommandLinkButton* step : steps)
            step->setDescription({});
    resize(wide, layout()->totalHeightForWidth(wide));
    const QPoint middle = parentWidget()->rect().center() - rect().center();
    move(std::max(middle.x(), 0), std::max(middle.y(), 0));
}

bool FirstSteps::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize)
        center();
    return QFrame::eventFilter(watched, event);
}
