// The widgets of the link window: menus, lists, and the data of both ends.

#include "base/operation.h"
#include "base/windows/boxes.h"
#include "radio/windows/frmLink.h"
#include "radio/windows/smeter.h"
#include "radio/windows/stationcolumn.h"

#include <QActionGroup>
#include <QGridLayout>
#include <QLabel>
#include <QMenuBar>

static QComboBox* widelist(const char* name, QWidget* parent)
{
    QComboBox* list = namedlist(QString::fromLatin1(name), parent);
    list->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    list->setMinimumContentsLength(18);
    return list;
}

void frmLink::makemenus()
{
    auto* bar = new QMenuBar(this);
    layout()->setMenuBar(bar);
    editmenu = bar->addMenu(QStringLiteral("&Edition"));
    editmenu->addAction(QStringLiteral("&Copier"), QKeySequence::Copy, this, &frmLink::copy)
        ->setObjectName(QStringLiteral("copy"));
    editmenu->addAction(QStringLiteral("&Exporter vers..."), this, &frmLink::exportlink)
        ->setObjectName(QStringLiteral("export"));
    viewmenu = bar->addMenu(QStringLiteral("&Affichage"));
    makeviewmenu(*viewmenu);
    stop = bar->addAction(QStringLiteral("&Stop"), [] { opbusy = 0; });
    stop->setObjectName(QStringLiteral("stop"));
    stop->setVisible(false);
}

void frmLink::makeviewmenu(QMenu& menu)
{
    struct Entry {
        const char *name, *text;
        void (frmLink::*procedure)();
    };
    static constexpr std::array<Entry, 5> entries{{
        {"profile", "&Profil", &frmLink::showprofile},
        {"invert", "&Inverser", &frmLink::invert},
        {"details", "&Détails", &frmLink::showdetails},
        {"range", "Por&tée", &frmLink::showrange},
        {"distribution", "&Distribution", &frmLink::showdistribution},
    }};
    graphs = new QActionGroup(this);
    for (const Entry& entry : entries) {
        QAction* action = menu.addAction(QString::fromUtf8(entry.text));
        connect(action, &QAction::triggered, this, [this, procedure = entry.procedure] {
            (this->*procedure)();
            mark(inview); // what was refused doesn't take the mark
        });
        action->setObjectName(QString::fromLatin1(entry.name));
        action->setCheckable(true);
        graphs->addAction(action);
    }
    QMenu* views = menu.addMenu(QStringLiteral("&Observation"));
    views->setObjectName(QStringLiteral("views"));
    for (const char* text :
         {"5°", "10°", "20°", "40°", "80°", "&Large fenêtre", "Vue &Stéréoscopique",
          "Créer un vol normal", "Créer un vol stéréo.", "&Visionner le vol", "&Options"})
        views->addAction(QString::fromUtf8(text))->setEnabled(false);
}

QLayout* frmLink::makelists()
{
    auto* row = new QHBoxLayout;
    const auto add = [&](const char* name, const QString& caption) {
        QComboBox* list = widelist(name, this);
        auto* label = new QLabel(caption, this);
        label->setBuddy(list);
        row->addWidget(label);
        row->addWidget(list);
        row->addSpacing(12);
        return list;
    };
    transmitterlist = add("transmitter", QStringLiteral("Émetteur"));
    receiverlist = add("receiver", QStringLiteral("Récepteur"));
    netlist = add("netlist", QStringLiteral("Réseau"));
    row->addStretch();
    for (QComboBox* list : {transmitterlist, receiverlist})
        connect(list, &QComboBox::currentIndexChanged, this, &frmLink::changestations);
    connect(netlist, &QComboBox::activated, this, &frmLink::showprofile);
    return row;
}

QLayout* frmLink::makecolumns()
{
    const QString role = QStringLiteral("Rôle");
    const QString loss = QStringLiteral("Pertes de ligne (dB)");
    const QString gain = QStringLiteral("Gain d'antenne (dBi)");
    leftcolumn = new StationColumn(
        QStringLiteral("left"),
        {role, QStringLiteral("Nom du système Tx"), QStringLiteral("Puissance Tx (W)"), loss, gain},
        this);
    rightcolumn = new StationColumn(QStringLiteral("right"),
                                    {role, QStringLiteral("Nom du système Rx"), gain, loss,
                                     QStringLiteral("Sensitivité Rx (µV)")},
                                    this);
    connect(leftcolumn, &StationColumn::applied, this,
            [this](const QString& height) { applyheight(true, height); });
    connect(rightcolumn, &StationColumn::applied, this,
            [this](const QString& height) { applyheight(false, height); });
    meters = {new SMeter(QStringLiteral("smeter0"), this),
              new SMeter(QStringLiteral("smeter1"), this)};
    auto* grid = new QGridLayout;
    grid->addWidget(leftcolumn, 0, 0);
    grid->addWidget(rightcolumn, 0, 1);
    grid->addWidget(meters[0], 1, 0, Qt::AlignHCenter);
    grid->addWidget(meters[1], 1, 1, Qt::AlignHCenter);
    return grid;
}
