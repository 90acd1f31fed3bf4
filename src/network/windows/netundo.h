#pragma once

#include "network/tables.h"

#include <QString>

#include <functional>

/// What follows when the user took something back, or did it again. Harmless by default.
struct NetworkUndoHooks {
    /// Evaluates and draws anew, and refreshes the windows that show the tables.
    std::function<void()> changed = [] {};
};
extern NetworkUndoHooks networkundohooks;

/// One action of the user on stations, systems and nets: what the tables hold when it is made and
/// when it is done differs by what the user can take back, as one entry of `undostack()`.
/// While several are under way, each takes what changes between its own making and its end, less
/// what another one has taken.
class TablesEdit
{
public:
    /// what: as the menu names it, behind "Annuler: ", for example "déplacer Nord"
    explicit TablesEdit(QString what);
    TablesEdit(const TablesEdit&) = delete;
    TablesEdit& operator=(const TablesEdit&) = delete;
    /// Without `done` nothing can be taken back.
    ~TablesEdit();

    /// Enters what changed, and the network counts as changed; nothing where nothing did. What
    /// changes from here on belongs to the next call.
    void done();

private:
    QString name;
    NetworkTables before;
};

/// The same for an action that has already been done.
///   before: the tables as they were before it
void pushtablesedit(const QString& what, const NetworkTables& before);

/// Ends the action that every open edit has under way, so that it can be taken back at once.
void settleedits();
/// Another network is in the tables: nothing of the old one can be taken back.
void forgetedits();
