// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <kxcommon/kxcommon_export.h>

// Installs the form scaler behind appScaleForm: forms are laid out for 96 dots per inch; on a
// screen of another logical resolution a form grows or shrinks by that factor, and never
// beyond the screen's available area.
KXCOMMON_EXPORT void installFormScaler();
