#pragma once

#include <QString>
#include <QUndoStack>

/// What the user can take back, in the order of time: the program's one stack, of the last 200
/// actions. An entry that has lost its object (its picture closed) calls `setObsolete(true)`; it is
/// then passed over and dropped.
QUndoStack& undostack();

/// Takes back, or does again, the next entry that still has its object. Nothing without one.
void undolast();
void redolast();

/// What these would take back or do again, as the entry names it; empty when there is nothing.
QString undotext();
QString redotext();
