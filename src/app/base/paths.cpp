#include "app/base/paths.h"
