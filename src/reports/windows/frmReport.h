#pragma once

#include "reports/netreport.h"

#include <QDialog>

class QButtonGroup;
class QComboBox;
class QPagedPaintDevice;
class QScrollArea;

/// The area in which a report is drawn with its colours.
class ReportArea : public QWidget
{
    Q_OBJECT

public:
    explicit ReportArea(QWidget* parent = nullptr);
    void setreport(ReportLines report);
    const ReportLines& report() const { return lines; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    ReportLines lines;
};

/// "Rapport de performance": the matrix of link quality of one net, and the whole report on paper
/// or in a file.
class frmReport : public QDialog
{
    Q_OBJECT

public:
    explicit frmReport(QWidget* parent = nullptr);

    ReportScale scale() const;
    /// The whole report on a printer or a PDF.
    void print(QPagedPaintDevice& device) const;

private:
    QWidget* makechoices();
    void redraw();
    void askprinter();

    QComboBox* netlist;
    QButtonGroup* scales;
    ReportArea* area;
};

/// Opens the dialog.
void showreport(QWidget* parent);
