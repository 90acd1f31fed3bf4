#include "app/base/bytes.h"
