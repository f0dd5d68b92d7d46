// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Installs the widget counterparts of the platform hooks in a GUI host: message boxes for
// MsgDlg, the form scaler and Qt's own texts in German. Call once after the QApplication exists.
void installWidgetHooks();
