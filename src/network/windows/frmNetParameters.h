#pragma once

#include "network/windows/frmNetPage.h"

#include <array>

class QCheckBox;
class QComboBox;
class QGroupBox;

/// "Paramètres": name, frequencies, ground, statistical mode and climate of a net.
class ParametersPage : public NetPage
{
    Q_OBJECT

public:
    ParametersPage(TableActions& record, QWidget* parent);
    void fill() override;

signals:
    void renamed();

private:
    void makenumbers(QGridLayout& grid);
    void makechoices(QGridLayout& grid);
    QGroupBox* makemodes();
    void makeshares(QGridLayout& grid);
    void storemode();
    void enableshares();

    QLineEdit* name = nullptr;
    std::array<NumberField*, 5> numbers{};
    std::array<NumberField*, 3> shares{}; ///< of time, locations, situations
    QButtonGroup* polarisations = nullptr;
    QButtonGroup* modes = nullptr;
    QCheckBox* urbanbox = nullptr;
    QComboBox* climates = nullptr;
};
