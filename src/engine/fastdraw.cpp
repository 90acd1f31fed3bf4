#include "engine/fastdraw.h"
