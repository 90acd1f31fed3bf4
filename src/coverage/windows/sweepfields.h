#pragma once

#include "base/windows/numberfield.h"
#include "network/tables.h"

#include <QGroupBox>

#include <array>

/// The fields of a sweep, which both coverages have.
struct SweepFields {
    NumberField *azmin = nullptr, *azmax = nullptr, *step = nullptr; ///< degrees
    NumberField *rmin = nullptr, *rmax = nullptr;                    ///< km
};

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
