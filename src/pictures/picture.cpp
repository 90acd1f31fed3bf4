#include "pictures/picture.h"
