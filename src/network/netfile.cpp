#include "network/netfile.h"
