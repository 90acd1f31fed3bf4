#include "coordinates/geosys.h"
