#pragma once

#include "base/windows/numberfield.h"
#include "relief/picturesettings.h"

#include <QDialog>

#include <functional>
#include <vector>

class QButtonGroup;
class QCheckBox;
class QLabel;
class QLayout;
class QPushButton;

/// What the dialog's further buttons start once it has closed. A button without its procedure is
/// disabled.
struct PictureActions {
    std::function<void()> image3d; ///< the three-dimensional view of the map
    std::function<void()> stereo;  ///< a stereo pair, with the settings stored
    std::function<void()> adrg;    ///< chart imagery of the folder given
};
extern PictureActions pictureactions;

/// The properties of a picture: how the map is drawn in it. "Appliquer" makes them the map's own
/// and sets `opbusy` to tell the caller to draw.
class frmPicPro : public QDialog
{
    Q_OBJECT

public:
    /// No picture: the properties of the one that will be drawn next.
    explicit frmPicPro(const Picture* picture, QWidget* parent = nullptr);

    /// Settings to the fields.
    void updatefields();

private:
    QLayout* makemodes();
    QLayout* makenumbers();
    QLayout* makelayers();
    QLayout* makepaths();
    QLayout* makebuttons();
    void modechosen(int mode);
    void enablefields();
    void showpreview();
    void choosefont();
    void choosecolours();
    void readchecks();
    void store();
    void apply();
    void leave(const std::function<void()>& action);

    struct Number {
        NumberField* field;
        float MapRecord::*target;
        const char* pattern; ///< empty: general notation
    };
    void numberchanged(const Number& number);

    const Picture* shown;
    PictureSettings edited;
    MapGrid thinned; ///< of the preview
    bool filling = false;
    std::vector<Number> numbers;
    QButtonGroup* modes = nullptr;
    QLabel* preview = nullptr;
    QLabel* information = nullptr;
    QCheckBox *contour10 = nullptr, *contour100 = nullptr, *contour500 = nullptr;
    QCheckBox *cities = nullptr, *transparent = nullptr, *objects = nullptr;
    QLineEdit *objectpath = nullptr, *adrgpath = nullptr;
    QPushButton *font = nullptr, *coloursbutton = nullptr;
};
