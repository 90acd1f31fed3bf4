#pragma once

#include "network/netfields.h"
#include "network/windows/tableactions.h"

#include <QWidget>

#include <functional>

class NumberField;
class QButtonGroup;
class QGridLayout;
class QLabel;
class QLineEdit;
class QListWidget;
class QVBoxLayout;

/// Texts of a field: its name, its caption, and the hint beside it.
struct FieldTexts {
    const char* name;
    const char* caption;
    const char* hint;
};

/// A page of the network dialog. What is typed or chosen there goes to the records at once.
class NetPage : public QWidget
{
    Q_OBJECT

public:
    /// Shows the records of the selected net.
    virtual void fill() = 0;

protected:
    NetPage(TableActions& record, QWidget* parent);

    static Net& shownnet();
    /// What an edit on this page is about: the selected net's name.
    virtual QString subject() const;

    /// Adds a row of caption, field and hint; the field for a name of up to 30 characters, or for a
    /// number.
    QLineEdit* addname(QGridLayout& grid, const FieldTexts& texts);
    NumberField* addnumber(QGridLayout& grid, const FieldTexts& texts, const Bounds& limits);
    /// Each change of the field's text, but for those while the page is filled, is taken over.
    void follow(QLineEdit& field, std::function<void()> take);
    /// Runs a choice of the user as one step of "Annuler".
    void choose(const QString& caption, const std::function<void()>& change);

    TableActions& actions;
    bool filling = false; ///< fields are being set, and records stay
};

/// A list of names under its title, so many average characters wide.
QListWidget* titledlist(const QString& name, const QString& title, int width, QVBoxLayout& column,
                        QWidget* parent);
/// Tells the bounds of a field that has no hint beside it.
void hintbounds(QLineEdit& field, const Bounds& limits);
/// Marks the button of this number in a group; none where there is no such button.
void mark(QButtonGroup& group, int number);
