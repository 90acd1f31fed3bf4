#include "app/base/numbers.h"
