#define ITM_VARIANT avx2
#define ITM_WIDTH 4
#include "engine/itm/itmkernel.h"

extern const itm::Kernel itmkernel_avx2;
const itm::Kernel itmkernel_avx2 = {"avx2", itm::take, itm::path, itm::radial};
