#include "network/unsaved.h"

#include "network/tables.h"

bool netedited = false;

void markedited()
{
    netedited = true;
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
