#define ITM_VARIANT sse2
#define ITM_WIDTH 2
#include "engine/itm/itmkernel.h"

extern const itm::Kernel itmkernel_sse2;
const itm::Kernel itmkernel_sse2 = {"sse2", itm::take, itm::path, itm::radial};
