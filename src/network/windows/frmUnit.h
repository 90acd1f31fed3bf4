#pragma once

#include "network/tables.h"
#include "network/windows/netundo.h"

#include <QDialog>
#include <QFont>
#include <QImage>

#include <functional>
#include <optional>
#include <vector>

class ColourButton;
class NumberField;
class QCheckBox;
class QGroupBox;
class QLabel;
class QLayout;
class QLineEdit;
class QListWidget;
class QPushButton;
class QSlider;
class SampleLabel;

/// What the station editor asks of the rooms above: the pictures and the cursor on them. Harmless
/// by default.
struct UnitWindowHooks {
    /// The geographic cursor's position, degrees.
    std::function<void(float& lon, float& lat)> cursorposition = [](float&, float&) {};
    std::function<void(float lon, float lat)> movecursor = [](float, float) {};
    /// Takes off every picture what is drawn over it.
    std::function<void()> clearpictures = [] {};
    /// Draws a station anew: its name, its colours or its icon changed.
    std::function<void(int unit)> redrawstation = [](int) {};
    /// Evaluates the nets and draws them over the pictures.
    std::function<void()> drawnets = [] {};
    /// The icons that a station's number selects from.
    std::function<std::vector<QImage>()> icons = [] { return std::vector<QImage>(); };
    /// The font of names on pictures.
    std::function<QFont()> labelfont = [] { return QFont(); };
};
extern UnitWindowHooks unitwindowhooks;

/// "Propriétés des stations": edits the 50 stations, one at a time. It stays open beside the
/// pictures and writes every change to the tables at once.
class frmUnit : public QDialog
{
    Q_OBJECT

public:
    explicit frmUnit(QWidget* parent = nullptr);

    /// The station in view.
    int unit() const;
    /// Chooses a station, as the user would.
    void choose(int number);
    /// Fills every field from the station in view.
    void updatefields();
    /// A station has another place; the current one is chosen.
    void followstation(int number);
    /// The tables changed elsewhere: names and fields follow.
    void refill();

    void done(int result) override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void makewidgets();
    QLayout* makelist();
    QLayout* makefields();
    QLayout* makelabelfields();
    QLayout* makeiconfields();
    QGroupBox* makeposition();
    QLayout* makebuttons();
    void connectfields();
    void place();

    Unit& record() const { return unitat(unit()); }
    void showline(int number);
    void showsample();
    void showicon();
    void showposition();

    void takestation();
    void takename(const QString& text);
    void takeelevation();
    void takeenabled(bool on);
    void taketransparent(bool on);
    void takecolours();
    void takeicon(int position);
    void changed();
    /// A field is being edited: until it is left, that is one action of the user.
    void edit(const QWidget* field, const QString& what);
    void settle();
    /// An action of the user on the station, all at once; what it is called is followed by the
    /// station's name.
    void act(const QString& what, const std::function<void()>& action);

    void gotostation();
    void gotocursor();
    void enterposition();
    void importtown();
    void exporttown();
    void undo();
    void move(float lon, float lat);

    Unit undocopy; ///< the station as it was when it was selected
    std::vector<QImage> icons;
    bool filling = false; ///< the window writes its own fields
    std::optional<TablesEdit> editing;
    const QWidget* edited = nullptr; ///< the field of that edit

    QListWidget* list;
    QLineEdit* name;
    NumberField* elevation;
    QCheckBox *enabled, *transparent;
    ColourButton *forecolour, *backcolour;
    SampleLabel* sample;
    QSlider* iconbar;
    QLabel *iconcaption, *iconimage;
    QLabel *position, *locatorline;
    QPushButton* exportbutton;
};

/// Opens the window, or brings it to the front, on the current station.
frmUnit* showunits(QWidget* parent);
/// The window that is open; nullptr when there is none.
frmUnit* unitwindow(const QWidget* parent);
