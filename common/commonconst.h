// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <kxcommon/kxcommon_core_export.h>

// Flags shared with the suite's other packages; this package only holds them.
namespace CommonConst {
extern KXCOMMON_CORE_EXPORT bool MemoryTransponderMode;
extern KXCOMMON_CORE_EXPORT bool ShowDeviceInfoOnStartTesting;
} // namespace CommonConst
