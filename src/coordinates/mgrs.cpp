#include "coordinates/mgrs.h"
