// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <kxcommon/kxcommon_export.h>

// Installs the widget counterparts of the platform hooks in a GUI host: message boxes for
// MsgDlg, the form scaler and Qt's own texts in German. Call once after the QApplication exists.
KXCOMMON_EXPORT void installWidgetHooks();
