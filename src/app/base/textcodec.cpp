#include "app/base/textcodec.h"
