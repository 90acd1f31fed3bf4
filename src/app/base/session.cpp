#include "app/base/session.h"
