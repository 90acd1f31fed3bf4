#include "app/base/hooks.h"
