#pragma once

#include <QDialog>

/// Title and version of the program, and a way to the desktop's system information.
class frmAbout : public QDialog
{
    Q_OBJECT

public:
    explicit frmAbout(QWidget* parent);
};
