#pragma once

#include "network/windows/frmNetPage.h"

class QCheckBox;

/// "Style": the rules of the line colours, for all nets. They are taken over by "Appliquer" only.
class StylePage : public NetPage
{
    Q_OBJECT

public:
    StylePage(TableActions& record, QWidget* parent);
    void fill() override;

signals:
    void applied();

private:
    void makerules(QGridLayout& grid);
    NumberField* makelevel(const char* name, const QCheckBox& rule);
    void apply();

    QCheckBox* green = nullptr;
    QCheckBox* yellow = nullptr;
    QCheckBox* red = nullptr;
    QCheckBox* opaque = nullptr;
    NumberField* greenlevel = nullptr;
    NumberField* yellowlevel = nullptr;
};
