#include "radio/link.h"
