#include "terrain/windows/mapwindows.h"

MapWindowHooks mapwindowhooks;
