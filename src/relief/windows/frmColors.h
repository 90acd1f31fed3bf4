#pragma once

#include "relief/coloredit.h"

#include <QDialog>

#include <array>

class ColourButton;
class NumberField;
class QCheckBox;
class QLabel;
class QLayout;
class QVBoxLayout;
class ScaleStrip;

/// "Couleurs arc-en-ciel": the twelve colours and eleven levels of the rainbow scale.
class frmColors : public QDialog
{
    Q_OBJECT

public:
    /// Opens on a table under edit; floor and ceiling, m, are those that a relative scale spans.
    frmColors(const ColorEdit& edit, float floor, float ceiling, QWidget* parent = nullptr);

private:
    QLayout* makescale();
    QLayout* maketools();
    QLayout* makebuttons();
    QWidget* makevalue(std::size_t index);
    QWidget* makebelow();
    QWidget* makecolour(std::size_t index);
    void addramps(QVBoxLayout& column);
    void addscales(QVBoxLayout& column);
    void loadramp(int number);
    void showvalues();
    void valuechanged(std::size_t index);
    void store(bool withlevels);
    void refresh();

    ColorEdit edited;
    float floor_m, ceiling_m;
    std::array<ColourButton*, 12> colourbuttons{};
    std::array<NumberField*, 11> values{};
    QLabel* below = nullptr; ///< over colour 0: what lies below the first level
    ScaleStrip* strip = nullptr;
    QCheckBox* stratified = nullptr;
    QCheckBox* legend = nullptr;
};
