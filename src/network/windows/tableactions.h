#pragma once

#include "network/windows/netundo.h"

#include <QScopedValueRollback>

#include <optional>

class QWidget;

/// Makes one step of the program's "Annuler" of each action in a dialog that edits the tables: a
/// choice is one, and so is all that is typed into a field until it is left.
class TableActions
{
public:
    /// A field is about to change a record.
    void type(const QWidget* field, const QString& what);
    /// The field was left, or the dialog closes.
    void settle();
    /// Runs a choice, which may change fields, too.
    template <typename Change> void choose(const QString& what, Change change)
    {
        settle();
        const QScopedValueRollback<bool> inside(choosing, true);
        TablesEdit edit(what);
        change();
        edit.done();
    }

private:
    std::optional<TablesEdit> typing;
    const QWidget* typedfield = nullptr;
    bool choosing = false;
};
