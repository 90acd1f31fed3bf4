#pragma once

#include "network/tables.h"

#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>

#include <array>
#include <cstdint>
#include <vector>

/// A field for a number. It refuses nothing: a text out of bounds turns red, and the value is held
/// within them.
class NumberField : public QLineEdit
{
    Q_OBJECT

public:
    NumberField(const QString& name, double lo, double hi, QWidget* parent);

    void setbounds(double lo, double hi);
    /// Shows a number in general notation.
    void setnumber(float number);
    /// The text as a number held within the bounds.
    double value() const;
    /// The text as a number, as typed.
    double typed() const;

private:
    void recolour();

    double low;
    double high;
};

/// A button "Couleur" with a swatch of its colour, 0x00BBGGRR.
class SwatchButton : public QPushButton
{
    Q_OBJECT

public:
    SwatchButton(const QString& name, QWidget* parent);

    std::int32_t colour() const { return shown; }
    void setcolour(std::int32_t colour);
    /// Opens the standard colour dialog and takes the choice.
    void choose();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::int32_t shown = 0;
};

/// The fields of a sweep, which both coverages have.
struct SweepFields {
    NumberField *azmin = nullptr, *azmax = nullptr, *step = nullptr; ///< degrees
    NumberField *rmin = nullptr, *rmax = nullptr;                    ///< km
};
/// Fills a list with the names of nets, each with its number as data, and selects the one used
/// last, else the first. Without a net this text stands in the list, with 0.
void fillnets(QComboBox& list, const std::vector<int>& nets, const QString& none);

/// A button that Enter in a field doesn't press.
QPushButton* namedbutton(const QString& name, const QString& caption, QWidget* parent);

/// A titled box with the azimuth fields, captions in the order minimum, maximum, step.
QGroupBox* azimuthbox(const QString& title, const std::array<QString, 3>& captions,
                      SweepFields& fields, QWidget* parent);
/// A titled box with the range fields, minimum and maximum.
QGroupBox* rangebox(const QString& title, const std::array<QString, 2>& captions,
                    SweepFields& fields, QWidget* parent);
/// Shows the parameters of a sweep in its fields, and takes them from there, each held within its
/// field's bounds.
void showsweep(const CoverageParams& params, const SweepFields& fields);
void takesweep(const SweepFields& fields, CoverageParams& params);

/// Fills a list with the names of all stations and selects one.
void fillstations(QComboBox& list, int selected);

/// A titled box with a form in it.
QGroupBox* formbox(const QString& title, QFormLayout*& form, QWidget* parent);
