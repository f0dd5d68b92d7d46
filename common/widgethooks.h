// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Installs the widget counterparts of the platform hooks in a GUI host: message boxes for
// MsgDlg and the form scaler. Call once after the QApplication exists.
void installWidgetHooks();
