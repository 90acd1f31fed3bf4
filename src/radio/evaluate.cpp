#include "radio/evaluate.h"
