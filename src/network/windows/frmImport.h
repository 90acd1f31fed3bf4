#pragma once

#include "network/stationplan.h"

#include <QDialog>

class QCheckBox;
class QLabel;
class QSpinBox;
class QTableWidget;
class QVBoxLayout;

/// "Importer des stations": shows each record of another program's file, which slot it is to take,
/// and why one is not taken; "Importer" writes the stations into the tables as one action that can
/// be taken back.
class frmImport : public QDialog
{
    Q_OBJECT

public:
    /// name: of the file, as the window shows it
    frmImport(StationRecords found, const QString& name, QWidget* parent = nullptr);

    /// Number of stations that are taken with the choices as they stand.
    int taken() const { return static_cast<int>(plan.taken); }
    void accept() override;

private:
    void makechoices(QVBoxLayout& column);
    void maketable(QVBoxLayout& column);
    void makebuttons(QVBoxLayout& column);
    void refill();
    void fillrow(int row, const StationRecord& record, const PlannedStation& planned);
    void filluncounted();

    StationRecords records;
    StationPlan plan;
    QLabel *summary, *uncounted;
    QSpinBox* first;
    QCheckBox* replace;
    QTableWidget* table;
    QPushButton* applybutton;
};
