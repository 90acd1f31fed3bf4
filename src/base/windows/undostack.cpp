#include "base/windows/undostack.h"

namespace
{

constexpr int limit = 200;

bool lives(int entry)
{
    return !undostack().command(entry)->isObsolete();
}

} // namespace

QUndoStack& undostack()
{
    static QUndoStack* const stack = [] {
        static QUndoStack only;
        only.setUndoLimit(limit);
        return &only;
    }();
    return *stack;
}

void undolast()
{
    QUndoStack& stack = undostack();
    bool done = false;
    while (!done && stack.canUndo()) {
        done = lives(stack.index() - 1);
        stack.undo(); // drops one that is obsolete
    }
}

void redolast()
{
    QUndoStack& stack = undostack();
    bool done = false;
    while (!done && stack.canRedo()) {
        done = lives(stack.index());
        stack.redo();
    }
}

QString undotext()
{
    for (int i = undostack().index() - 1; i >= 0; --i)
        if (lives(i))
            return undostack().text(i);
    return {};
}

QString redotext()
{
    for (int i = undostack().index(); i < undostack().count(); ++i)
        if (lives(i))
            return undostack().text(i);
    return {};
}
