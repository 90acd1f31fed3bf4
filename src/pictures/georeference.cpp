#include "pictures/georeference.h"
