// The widgets of the radio coverage.

#include "base/windows/boxes.h"
#include "coverage/haat.h"
#include "coverage/windows/frmCoverage.h"

#include <QButtonGroup>
#include <QHBoxLayout>
#include <QLabel>
#include <QRadioButton>

static QWidget* radiorow(const QStringList& captions, QButtonGroup*& group, const QString& name,
                         QWidget* parent)
{
    auto* row = new QWidget(parent);
    auto* line = new QHBoxLayout(row);
    line->setContentsMargins(0, 0, 0, 0);
    group = new QButtonGroup(row);
    for (int i = 0; i < captions.size(); ++i) {
        auto* button = new QRadioButton(captions[i], row);
        button->setObjectName(name + QString::number(i));
        group->addButton(button, i);
        line->addWidget(button);
    }
    line->addStretch();
    return row;
}

QWidget* frmCoverage::makestations()
{
    QFormLayout* form = nullptr;
    QGroupBox* box = formbox(QStringLiteral("Lien"), form, this);
    centrelist = namedlist(QStringLiteral("centrelist"), box);
    mobilelist = namedlist(QStringLiteral("mobilelist"), box);
    netlist = namedlist(QStringLiteral("netlist"), box);
    form->addRow(QStringLiteral("Station centrale"), centrelist);
    form->addRow(QStringLiteral("Unité mobile"), mobilelist);
    form->addRow(QStringLiteral("Réseau"), netlist);
    form->addRow(new QLabel(QStringLiteral("Sens du lien"), box));
    form->addRow(
        radiorow({QStringLiteral("Centre Tx - Mobile Rx"), QStringLiteral("Centre Rx - Mobile Tx")},
                 directions, QStringLiteral("direction"), box));
    return box;
}

QWidget* frmCoverage::makesweep()
{
    auto* both = new QWidget(this);
    auto* column = new QVBoxLayout(both);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(rangebox(QStringLiteral("Portée (km)"),
                               {QStringLiteral("Minimum"), QStringLiteral("Maximum")}, sweep,
                               both));
    column->addWidget(
        azimuthbox(QStringLiteral("Balayage d'azimuth (°)"),
                   {QStringLiteral("Minimum"), QStringLiteral("Maximum"), QStringLiteral("Pas")},
                   sweep, both));
    return both;
}

QWidget* frmCoverage::makepattern()
{
    QFormLayout* form = nullptr;
    QGroupBox* box = formbox(QStringLiteral("Patron d'antenne"), form, this);
    patternlist = namedlist(QStringLiteral("patternlist"), box);
    antaz = new NumberField(QStringLiteral("antaz"), 0, 360, box);
    uselink =
        namedcheck(QStringLiteral("uselink"), QStringLiteral("Utiliser l'azimut du lien"), box);
    form->addRow(QStringLiteral("Fichier"), patternlist);
    form->addRow(QStringLiteral("Azimuth (°)"), antaz);
    form->addRow(uselink);
    return box;
}

QWidget* frmCoverage::makelevels()
{
    QFormLayout* form = nullptr;
    QGroupBox* box = formbox(QStringLiteral("Seuil"), form, this);
    form->addRow(radiorow({QStringLiteral("S-unit"), QStringLiteral("dBm"), QStringLiteral("µV")},
                          units, QStringLiteral("unit"), box));
    low = new NumberField(QStringLiteral("low"), 1, 60, box);
    high = new NumberField(QStringLiteral("high"), 1, 60, box);
    form->addRow(QStringLiteral("De (Courbe)"), low);
    form->addRow(QStringLiteral("À (Surface)"), high);
    curve = namedcheck(QStringLiteral("curve"), QStringLiteral("Courbe"), box);
    surface = namedcheck(QStringLiteral("surface"), QStringLiteral("Surface"), box);
    rainbow = namedcheck(QStringLiteral("rainbow"), QStringLiteral("Arc-en-ciel"), box);
    curvecolour = new ColourButton(QStringLiteral("curvecolour"), QStringLiteral("Couleur"), box);
    surfacecolour =
        new ColourButton(QStringLiteral("surfacecolour"), QStringLiteral("Couleur"), box);
    form->addRow(curve, curvecolour);
    form->addRow(surface, surfacecolour);
    form->addRow(rainbow);
    return box;
}

QWidget* frmCoverage::makebuttons()
{
    auto* row = new QWidget(this);
    auto* line = new QHBoxLayout(row);
    line->setContentsMargins(0, 0, 0, 0);
    line->addStretch();
    const auto add = [&](const char* name, const QString& caption, auto action) {
        QPushButton* button = namedbutton(QString::fromLatin1(name), caption, row);
        connect(button, &QPushButton::clicked, this, action);
        line->addWidget(button);
        return button;
    };
    add("haat", QStringLiteral("HAAT"), [this] { haatreport(centre(), chosennet()); });
    add("apply", QStringLiteral("Appliquer"), [this] { apply(); })->setDefault(true);
    add("cancel", QStringLiteral("Annuler"), [this] { reject(); });
    return row;
}

void frmCoverage::connectfields()
{
    for (QComboBox* list : {centrelist, mobilelist})
        connect(list, &QComboBox::currentIndexChanged, this, [this] {
            fillnets();
            showlinkazimuth();
        });
    connect(uselink, &QCheckBox::toggled, this, [this] {
        showlinkazimuth();
        enablefields();
    });
    for (NumberField* field : {sweep.rmin, sweep.rmax, sweep.azmin, sweep.azmax, sweep.step, antaz})
        connect(field, &QLineEdit::editingFinished, this, &frmCoverage::leavesweep);
}

void frmCoverage::connectlevels()
{
    connect(units, &QButtonGroup::idClicked, this, &frmCoverage::changeunits);
    connect(low, &QLineEdit::editingFinished, this, [this] { leavelevels(true); });
    connect(high, &QLineEdit::editingFinished, this, [this] { leavelevels(false); });
    connect(curve, &QCheckBox::toggled, this, &frmCoverage::enablefields);
    connect(surface, &QCheckBox::toggled, this, &frmCoverage::enablefields);
    connect(rainbow, &QCheckBox::toggled, this, &frmCoverage::chooserainbow);
    surfacecolour->setpress([this] { choosesurfacecolour(); });
}
