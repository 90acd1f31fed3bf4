#pragma once

#include "network/windows/frmNetPage.h"

class QCheckBox;

/// "Topologie": kind of a net, its visibility, and its retransmissions.
class TopologyPage : public NetPage
{
    Q_OBJECT

public:
    TopologyPage(TableActions& record, QWidget* parent);
    void fill() override;

signals:
    void changed();

private:
    void maketopologies(QVBoxLayout& column);
    void makeretransmissions(QVBoxLayout& column);
    void enableretransmissions();

    QButtonGroup* topologies = nullptr;
    QCheckBox* visible = nullptr;
    NumberField* retransmissions = nullptr;
    QLabel* caption = nullptr;
    QLabel* hint = nullptr;
};
