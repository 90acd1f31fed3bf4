#define ITM_VARIANT avx512
#define ITM_WIDTH 8
#include "engine/itm/itmkernel.h"

extern const itm::Kernel itmkernel_avx512;
const itm::Kernel itmkernel_avx512 = {"avx512", itm::take, itm::path, itm::radial};
