#include "commonconst.h"

namespace CommonConst {
bool MemoryTransponderMode = true;
bool ShowDeviceInfoOnStartTesting = true;
} // namespace CommonConst
