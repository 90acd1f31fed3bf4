#pragma once

#include "base/windows/numberfield.h"

#include <QDialog>

#include <array>
#include <cstdint>

class QCheckBox;
class QFrame;
class QGroupBox;
class QLabel;
class QPushButton;

/// The map's properties: its centre, its size in pixels and kilometres, the elevation sources and
/// their folders. "Appliquer" builds the map. The dialog works on `mapedit` and stays open beside
/// the pictures, so that the cursor can be moved for it.
class frmMapPro : public QDialog
{
    Q_OBJECT

public:
    explicit frmMapPro(QWidget* parent = nullptr);

    /// Fills the fields from `mapedit` and the number of pixels.
    void updatefields();
    /// Width in kilometres, position texts and corners follow the fields.
    void updatesize();

    std::int16_t W = 0; ///< pixels
    std::int16_t H = 0; ///< pixels

private:
    void takemap();
    void makewidgets();
    QGroupBox* makecentre();
    QGroupBox* makepixels();
    QGroupBox* makekilometres();
    QGroupBox* makesources();
    QFrame* makecorners();
    std::array<QPushButton*, 4> makecentrebuttons(QWidget* parent);

    /// Takes a changed field over, held within its bounds.
    void takelon();
    void takelat();
    void takewidth();
    void takeheight();
    void takesize();

    void choosecity();
    void usecursor();
    void enterposition();
    void apply();

    NumberField* lonfield = nullptr;
    NumberField* latfield = nullptr;
    NumberField* widthfield = nullptr;
    NumberField* heightfield = nullptr;
    NumberField* sizefield = nullptr;
    QLineEdit* kilometres = nullptr; ///< the width, computed
    QLabel* position = nullptr;
    QLabel* locatorlabel = nullptr;
    QLabel* corners = nullptr;
    std::array<QCheckBox*, 3> sources{}; ///< in the order of their bits and of `session.drvpath`
    std::array<QLineEdit*, 3> paths{};
    QCheckBox* ignore = nullptr;
};
