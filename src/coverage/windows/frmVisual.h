#pragma once

#include "coverage/windows/sweepfields.h"

#include <QComboBox>
#include <QDialog>

#include <cstdint>
#include <string>

class QCheckBox;
class QLabel;
class QRadioButton;

/// "Couverture visuelle": sets up the visual coverage. A press of a colour reads the fields, closes
/// the dialog, and has the coverage painted in that colour.
class frmVisual : public QDialog
{
    Q_OBJECT

public:
    explicit frmVisual(QWidget* parent = nullptr);

    /// What was pressed.
    enum class Run { none, paint, radar3d };
    Run run() const { return chosen; }
    /// The radar file to use; empty: none.
    std::string radarfile() const;

private:
    QWidget* makeobserver();
    QWidget* maketarget();
    QWidget* makeradar();
    QWidget* makebuttons();
    void fill();
    void showmode();
    void store(bool radar, std::int32_t colour);
    void paintin(std::int32_t colour);

    QComboBox *unitlist, *radarlist;
    NumberField *sensorh, *targeth;
    SweepFields sweep;
    QRadioButton *follow, *fixed;
    QLabel* targetcaption;
    QCheckBox* radaron;
    QPushButton* radarbutton;
    Run chosen = Run::none;
};

/// Opens the dialog and runs the coverage that it sets up.
void showvisual(QWidget* parent);
