#include "engine/lr.h"
