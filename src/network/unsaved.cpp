#include "network/unsaved.h"

#include "network/tables.h"

bool netedited = false;

static std::uint64_t edits = 0;

void markedited()
{
    netedited = true;
    ++edits;
}

std::uint64_t editcount()
{
    return edits;
}

bool netunsaved()
{
    return netdirty || netedited;
}

void marksaved()
{
    netdirty = false;
    netedited = false;
}
