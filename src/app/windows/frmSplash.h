#pragma once

#include <QWidget>

/// Logo, title and version while the program starts.
class frmSplash : public QWidget
{
    Q_OBJECT

public:
    explicit frmSplash(QWidget* owner);

protected:
    void paintEvent(QPaintEvent* event) override;
};
