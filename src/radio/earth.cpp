#include "radio/earth.h"
