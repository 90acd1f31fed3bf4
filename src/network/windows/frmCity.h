#pragma once

#include "network/gazetteer.h"

#include <QDialog>

class QLabel;
class QLineEdit;
class QListView;
class QPushButton;
class TownList;

/// "Villes": picks a place of the gazetteer. "Appliquer" leaves it in `cityname` and in the centre
/// of `mapedit`; without a place applied `cityname` is empty.
class frmCity : public QDialog
{
    Q_OBJECT

public:
    explicit frmCity(QWidget* parent = nullptr);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void makewidgets();
    QWidget* makebuttons();
    void read();
    void search();
    void pick();
    void apply();

    Gazetteer gazetteer;
    PickedTown town; ///< selected last; without a name none is
    TownList* lines;
    QLineEdit* wanted;
    QListView* list;
    QLabel *count, *picked;
    QPushButton* applybutton;
};
