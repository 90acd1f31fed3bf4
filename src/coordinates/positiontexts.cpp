#include "coordinates/positiontexts.h"
