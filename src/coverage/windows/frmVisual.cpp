#include "coverage/windows/frmVisual.h"

#include "base/windows/boxes.h"
#include "coverage/choice.h"
#include "coverage/paint/coveragepicture.h"
#include "network/windows/lists.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QRadioButton>

namespace
{
/// Colours of the three buttons, 0x00BBGGRR.
constexpr std::int32_t yellow = 0x00FFFF;
constexpr std::int32_t cyan = 0xFFFF00;
constexpr std::int32_t magenta = 0xFF00FF;
} // namespace

frmVisual::frmVisual(QWidget* parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("frmVisual"));
    setWindowTitle(QStringLiteral("Couverture visuelle"));
    auto* grid = new QGridLayout(this);
    grid->addWidget(makeobserver(), 0, 0);
    grid->addWidget(maketarget(), 1, 0);
    grid->addWidget(azimuthbox(QStringLiteral("Balayage d'azimuth"),
                               {QStringLiteral("Minimum (°)"), QStringLiteral("Maximum (°)"),
                                QStringLiteral("Pas (°)")},
                               sweep, this),
                    0, 1);
    grid->addWidget(rangebox(QStringLiteral("Portée"),
                             {QStringLiteral("Min. (km)"), QStringLiteral("Max. (km)")}, sweep,
                             this),
                    1, 1);
    grid->addWidget(makeradar(), 2, 0, 1, 2);
    grid->addWidget(makebuttons(), 3, 0, 1, 2);
    grid->setSizeConstraint(QLayout::SetFixedSize);
    fill();
    connect(follow, &QRadioButton::toggled, this, &frmVisual::showmode);
    connect(radaron, &QCheckBox::toggled, radarlist, &QWidget::setEnabled);
}

QWidget* frmVisual::makeobserver()
{
    QFormLayout* form = nullptr;
    QGroupBox* box = formbox(QStringLiteral("Observer depuis"), form, this);
    unitlist = namedlist(QStringLiteral("unitlist"), box);
    sensorh = new NumberField(QStringLiteral("sensorh"), 0.1, 9999, box);
    form->addRow(unitlist);
    form->addRow(QStringLiteral("Hauteur du senseur(m)\npar rapport au sol"), sensorh);
    return box;
}

QWidget* frmVisual::maketarget()
{
    QFormLayout* form = nullptr;
    QGroupBox* box = formbox(QStringLiteral("Target mode"), form, this);
    follow = new QRadioButton(QStringLiteral("Rase motte"), box);
    follow->setObjectName(QStringLiteral("follow"));
    fixed = new QRadioButton(QStringLiteral("Altitude fixe"), box);
    fixed->setObjectName(QStringLiteral("fixed"));
    targetcaption = new QLabel(box);
    targetcaption->setObjectName(QStringLiteral("targetcaption"));
    targeth = new NumberField(QStringLiteral("targeth"), 0.1, 9999, box);
    form->addRow(follow);
    form->addRow(fixed);
    form->addRow(targetcaption, targeth);
    return box;
}

QWidget* frmVisual::makeradar()
{
    auto* row = new QWidget(this);
    auto* line = new QHBoxLayout(row);
    line->setContentsMargins(0, 0, 0, 0);
    radaron = namedcheck(QStringLiteral("radaron"), QStringLiteral("Fichier radar "), row);
    radarlist = namedlist(QStringLiteral("radarlist"), row);
    line->addWidget(radaron);
    line->addWidget(radarlist, 1);
    return row;
}

QWidget* frmVisual::makebuttons()
{
    auto* row = new QWidget(this);
    auto* line = new QHBoxLayout(row);
    line->setContentsMargins(0, 0, 0, 0);
    const auto add = [&](const char* name, const QString& caption, auto action) {
        QPushButton* button = namedbutton(QString::fromLatin1(name), caption, row);
        connect(button, &QPushButton::clicked, this, action);
        line->addWidget(button);
        return button;
    };
    add("yellow", QStringLiteral("Jaune"), [this] { paintin(yellow); });
    add("cyan", QStringLiteral("Cyan"), [this] { paintin(cyan); });
    add("magenta", QStringLiteral("Magenta"), [this] { paintin(magenta); });
    line->addStretch();
    radarbutton = add("radar3d", QStringLiteral("Radar 3D"), [this] {
        store(true, network.coverage.visualcolour);
        chosen = Run::radar3d;
        accept();
    });
    return row;
}

void frmVisual::fill()
{
    const CoverageParams params = shownparams(network.coverage);
    fillstations(*unitlist, selection.curunit);
    sensorh->setnumber(params.sensorheight);
    targeth->setnumber(params.targetheight);
    (selection.visualmode != 0 ? follow : fixed)->setChecked(true);
    showsweep(params, sweep);
    for (const std::string& name : programfiles(".rad"))
        radarlist->addItem(QString::fromStdString(name));
    const bool any = radarlist->count() > 0;
    const int stored = radarlist->findText(QString::fromStdString(params.antfile.text()));
    radarlist->setCurrentIndex(std::max(stored, any ? 0 : -1));
    radaron->setEnabled(any);
    radaron->setChecked(any && coveragechoice.radaron);
    radarlist->setEnabled(radaron->isChecked());
    radarbutton->setEnabled(any);
    showmode();
}

void frmVisual::showmode()
{
    targetcaption->setText(follow->isChecked()
                               ? QStringLiteral("Hauteur de la cible(m)\npar rapport au sol")
                               : QStringLiteral("Altitude de la cible(m)\nau dessus de la mer"));
}

void frmVisual::store(bool radar, std::int32_t colour)
{
    selection.curunit = static_cast<std::int16_t>(unitlist->currentIndex() + 1);
    selection.visualmode = follow->isChecked() ? -1 : 0;
    coveragechoice.radaron = radaron->isChecked();
    CoverageParams params = network.coverage;
    params.sensorheight = static_cast<float>(sensorh->value());
    params.targetheight = static_cast<float>(targeth->value());
    takesweep(sweep, params);
    if (radar)
        params.antfile.assign(radarlist->currentText().toStdString());
    params.visualcolour = colour;
    storeparams(params);
}

void frmVisual::paintin(std::int32_t colour)
{
    store(radaron->isChecked(), colour);
    chosen = Run::paint;
    accept();
}

std::string frmVisual::radarfile() const
{
    return radaron->isChecked() ? radarlist->currentText().toStdString() : std::string();
}

void showvisual(QWidget* parent)
{
    frmVisual dialog(parent);
    dialog.exec();
    if (dialog.run() == frmVisual::Run::paint)
        viscoverage(dialog.radarfile());
}
