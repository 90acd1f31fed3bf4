#include "network/windows/netundo.h"

#include "base/windows/undostack.h"
#include "network/tabledelta.h"
#include "network/unsaved.h"

#include <QUndoCommand>

#include <utility>
#include <vector>

NetworkUndoHooks networkundohooks;

namespace
{

/// The edits under way, and where each of them began.
struct OpenEdit {
    TablesEdit* edit;
    NetworkTables* before;
};
std::vector<OpenEdit> openedits;

/// A change of the tables that can be taken back. What it says of the tables is no news to an edit
/// under way.
class TablesEntry : public QUndoCommand
{
public:
    TablesEntry(const QString& what, TablesDelta change)
        : QUndoCommand(what), delta(std::move(change))
    {
    }

    void undo() override { write(writebefore); }
    void redo() override
    {
        if (std::exchange(fresh, false)) { // the tables have it already
            for (const OpenEdit& open : openedits)
                writeafter(delta, *open.before);
            return;
        }
        write(writeafter);
    }

private:
    void write(void (*writefields)(const TablesDelta&, NetworkTables&))
    {
        writefields(delta, network);
        for (const OpenEdit& open : openedits)
            writefields(delta, *open.before);
        markedited();
        networkundohooks.changed();
    }

    TablesDelta delta;
    bool fresh = true;
};

} // namespace

TablesEdit::TablesEdit(QString what) : name(std::move(what)), before(network)
{
    openedits.push_back({this, &before});
}

TablesEdit::~TablesEdit()
{
    std::erase_if(openedits, [this](const OpenEdit& open) { return open.edit == this; });
}

void TablesEdit::done()
{
    pushtablesedit(name, before);
}

void pushtablesedit(const QString& what, const NetworkTables& before)
{
    TablesDelta delta = tablesdelta(before, network);
    if (delta.empty())
        return;
    markedited();
    undostack().push(new TablesEntry(what, std::move(delta)));
}

void settleedits()
{
    for (const OpenEdit& open : std::vector(openedits))
        open.edit->done();
}

void forgetedits()
{
    for (const OpenEdit& open : openedits)
        *open.before = network;
    undostack().clear();
}
