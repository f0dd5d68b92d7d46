// SPDX-License-Identifier: LGPL-2.1-or-later
#include "commonconst.h"

namespace CommonConst {
bool MemoryTransponderMode = true;
bool ShowDeviceInfoOnStartTesting = true;
} // namespace CommonConst
