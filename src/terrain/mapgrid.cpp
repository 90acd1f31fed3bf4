#include "terrain/mapgrid.h"
