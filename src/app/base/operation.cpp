#include "app/base/operation.h"
