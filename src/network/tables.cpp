#include "network/tables.h"
