#pragma once

// Installs the widget counterparts of the platform hooks in a GUI host: message boxes for
// MsgDlg and the form scaler. Call once after the QApplication exists.
void installWidgetHooks();
