#include "radio/profile.h"
