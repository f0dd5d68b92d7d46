// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Flags shared with the suite's other packages; this package only holds them.
namespace CommonConst {
extern bool MemoryTransponderMode;
extern bool ShowDeviceInfoOnStartTesting;
} // namespace CommonConst
