#pragma once

#include "base/windows/colourbutton.h"
#include "coverage/choice.h"
#include "coverage/windows/sweepfields.h"

#include <QComboBox>
#include <QDialog>

class QButtonGroup;
class QCheckBox;

/// "Couverture radio": sets up the radio coverage.
class frmCoverage : public QDialog
{
    Q_OBJECT

public:
    explicit frmCoverage(QWidget* parent = nullptr);

    /// True when it was closed by "Appliquer" with something to draw.
    bool applied() const { return applying; }

    void done(int result) override;

private:
    QWidget* makestations();
    QWidget* makesweep();
    QWidget* makepattern();
    QWidget* makelevels();
    QWidget* makebuttons();
    void connectfields();
    void connectlevels();

    void fill();
    void fillnets();
    void fillpatterns();
    void showlinkazimuth();
    void showlevels();
    void enablefields();

    void changeunits(int id);
    void leavelevels(bool first);
    void leavesweep();
    void chooserainbow(bool on);
    void choosesurfacecolour();
    void apply();
    void store();

    int centre() const;
    int mobile() const;
    int chosennet() const;
    LevelUnit chosenunit() const;

    QComboBox *centrelist, *mobilelist, *netlist, *patternlist;
    QButtonGroup *directions, *units;
    SweepFields sweep;
    NumberField *antaz, *low, *high;
    QCheckBox *uselink, *curve, *surface, *rainbow;
    ColourButton *curvecolour, *surfacecolour;
    LevelUnit unit = LevelUnit::sunit; ///< in which `levels` are held
    Levels levels;
    bool applying = false;
};

/// Opens the dialog and runs the coverage that it sets up.
void showcoverage(QWidget* parent);
