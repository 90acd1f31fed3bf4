#include "terrain/mapfile.h"
