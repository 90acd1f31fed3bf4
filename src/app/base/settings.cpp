#include "app/base/settings.h"
