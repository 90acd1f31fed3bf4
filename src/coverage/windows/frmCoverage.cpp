#include "coverage/windows/frmCoverage.h"

#include "base/numbers.h"
#include "coverage/paint/coveragepicture.h"
#include "network/commonnets.h"
#include "network/windows/lists.h"
#include "radio/profile.h"
#include "relief/coloredit.h"
#include "relief/colours.h"
#include "relief/windows/frmColors.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QGridLayout>

namespace
{
constexpr std::int32_t yellow = 0x00FFFF;
} // namespace

frmCoverage::frmCoverage(QWidget* parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("frmCoverage"));
    setWindowTitle(QStringLiteral("Couverture radio"));
    auto* grid = new QGridLayout(this);
    grid->addWidget(makestations(), 0, 0);
    grid->addWidget(makesweep(), 1, 0);
    auto* right = new QVBoxLayout;
    right->addWidget(makelevels());
    right->addWidget(makepattern(), 1);
    grid->addLayout(right, 0, 1, 2, 1);
    grid->addWidget(makebuttons(), 2, 0, 1, 2);
    grid->setSizeConstraint(QLayout::SetFixedSize);
    fill();
    connectfields();
    connectlevels();
}

void frmCoverage::fill()
{
    readcoveragesettings(coveragechoice);
    const CoverageParams params = shownparams(network.coverage);
    fillstations(*centrelist, selection.linkunit1);
    fillstations(*mobilelist, selection.linkunit2);
    directions->button(coveragechoice.covdir)->setChecked(true);
    showsweep(params, sweep);
    antaz->setnumber(params.antazimuth);
    uselink->setChecked(coveragechoice.covuselink == 1);
    fillpatterns();
    unit = levelunit(params.unit);
    levels = openinglevels(unit, coveragechoice.levels);
    units->button(static_cast<int>(unit))->setChecked(true);
    curve->setChecked(params.drawcurve != 0);
    surface->setChecked(params.drawsurface != 0);
    rainbow->setChecked(params.surfacecolour == 0);
    curvecolour->setcolour(params.curvecolour);
    surfacecolour->setcolour(params.surfacecolour);
    fillnets();
    showlevels();
    showlinkazimuth();
    enablefields();
}

int frmCoverage::centre() const
{
    return centrelist->currentIndex() + 1;
}

int frmCoverage::mobile() const
{
    return mobilelist->currentIndex() + 1;
}

int frmCoverage::chosennet() const
{
    return netlist->currentData().toInt();
}

LevelUnit frmCoverage::chosenunit() const
{
    return levelunit(static_cast<std::int16_t>(units->checkedId()));
}

void frmCoverage::fillnets()
{
    ::fillnets(*netlist, commonnets(network, centre(), mobile()),
               QStringLiteral("Pas de réseau en commun"));
}

void frmCoverage::fillpatterns()
{
    for (const std::string& name : patternfiles())
        patternlist->addItem(QString::fromStdString(name));
    if (coveragechoice.covindex >= 0 && coveragechoice.covindex < patternlist->count())
        patternlist->setCurrentIndex(coveragechoice.covindex);
    const int stored =
        patternlist->findText(QString::fromStdString(network.coverage.antfile.text()));
    if (stored >= 0)
        patternlist->setCurrentIndex(stored);
}

void frmCoverage::showlinkazimuth()
{
    SweepCentre from;
    SweepCentre to;
    if (!uselink->isChecked() || currentpic == nullptr ||
        !sweepcentre(*currentpic, centre(), from) || !sweepcentre(*currentpic, mobile(), to))
        return;
    // Rows count downward, northward counts upward.
    const double radians = azimuth(from.y0 - to.y0, to.x0 - from.x0);
    antaz->setText(QString::fromStdString(formatnumber("0.0", radians / degree)));
}

void frmCoverage::showlevels()
{
    const auto bounds = levelbounds(unit);
    const bool volts = unit == LevelUnit::microvolt;
    for (NumberField* field : {low, high})
        field->setbounds(volts ? dbm2microvolts(double{bounds.low}) : double{bounds.low},
                         volts ? dbm2microvolts(double{bounds.high}) : double{bounds.high});
    low->setText(QString::fromStdString(leveltext(unit, levels.low)));
    high->setText(QString::fromStdString(leveltext(unit, levels.high)));
}

void frmCoverage::enablefields()
{
    low->setEnabled(curve->isChecked() || surface->isChecked());
    high->setEnabled(surface->isChecked());
    rainbow->setEnabled(surface->isChecked());
    curvecolour->setEnabled(curve->isChecked());
    surfacecolour->setEnabled(surface->isChecked());
    antaz->setEnabled(!uselink->isChecked());
}

void frmCoverage::changeunits(int id)
{
    const LevelUnit next = levelunit(static_cast<std::int16_t>(id));
    levels = changeunit(unit, next, levels);
    unit = next;
    showlevels();
}

void frmCoverage::leavelevels(bool first)
{
    const auto [least, most] = levelbounds(unit);
    const NumberField& field = first ? *low : *high;
    // A text that nobody touched is the level rounded; the level itself stays.
    if (field.text().toStdString() == leveltext(unit, first ? levels.low : levels.high))
        return;
    const double typed = double{typedlevel(unit, field.typed())};
    if (first)
        levels.low = heldlower(typed, double{least}, double{levels.high});
    else
        levels.high = heldupper(typed, double{levels.low}, double{most});
    showlevels();
}

void frmCoverage::leavesweep()
{
    const auto* field = sender();
    const auto& [azmin, azmax, step, rmin, rmax] = sweep;
    if (field == rmin)
        rmin->setnumber(heldlower(rmin->typed(), 0.1, rmax->value()));
    else if (field == rmax)
        rmax->setnumber(heldupper(rmax->typed(), rmin->value(), 1000));
    else if (field == azmin)
        azmin->setnumber(heldlower(azmin->typed(), 0, azmax->value()));
    else if (field == azmax)
        azmax->setnumber(heldupper(azmax->typed(), azmin->value(), 360));
    else if (field == step)
        step->setnumber(static_cast<float>(step->value()));
    else
        antaz->setnumber(static_cast<float>(antaz->value()));
}

void frmCoverage::chooserainbow(bool on)
{
    surfacecolour->setcolour(on ? 0 : yellow);
}

void frmCoverage::choosesurfacecolour()
{
    if (!rainbow->isChecked()) {
        surfacecolour->choose();
        return;
    }
    rainbowlevel = signallevels(unit, levels);
    frmColors(editsignal(colours, rainbowlevel), mapgrid.record.minx, mapgrid.record.maxx, this)
        .exec();
}

void frmCoverage::apply()
{
    if (chosennet() == 0 || centre() == mobile() || (!curve->isChecked() && !surface->isChecked()))
        return;
    store();
    applying = true;
    accept();
}

void frmCoverage::store()
{
    selection.linkunit1 = static_cast<std::int16_t>(centre());
    selection.linkunit2 = static_cast<std::int16_t>(mobile());
    selection.linknet = static_cast<std::int16_t>(chosennet());
    coveragechoice.covdir = static_cast<std::uint8_t>(directions->checkedId());
    coveragechoice.covuselink = uselink->isChecked() ? 1 : 0;
    coveragechoice.covindex = static_cast<std::int16_t>(patternlist->currentIndex());
    coveragechoice.covrainbow = rainbow->isChecked();
    CoverageParams params = network.coverage;
    takesweep(sweep, params);
    params.antazimuth = static_cast<float>(antaz->value());
    params.antfile.assign(patternlist->currentText().toStdString());
    params.unit = static_cast<std::int16_t>(unit);
    params.drawcurve = curve->isChecked() ? -1 : 0;
    params.drawsurface = surface->isChecked() ? -1 : 0;
    params.curvecolour = curvecolour->colour();
    params.surfacecolour = rainbow->isChecked() ? 0 : surfacecolour->colour();
    storeparams(params);
    coveragechoice.levels = levels;
    rainbowlevel = signallevels(unit, levels);
}

void frmCoverage::done(int result)
{
    savecoveragesettings(coveragechoice);
    QDialog::done(result);
}

void showcoverage(QWidget* parent)
{
    frmCoverage dialog(parent);
    dialog.exec();
    if (dialog.applied())
        coverage();
}
