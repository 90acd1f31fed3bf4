#include "base/busy.h"

#include "base/hooks.h"

static int guards = 0; // alive

Busy::Busy()
{
    if (guards++ == 0)
        hooks.busypointer(true);
}

Busy::~Busy()
{
    if (--guards == 0)
        hooks.busypointer(false);
}
