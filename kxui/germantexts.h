// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <kxcommon/kxcommon_export.h>

namespace kx::ui {

// Loads Qt's own German texts (a message box's Ja/Nein/Abbrechen, the file dialog's captions and
// columns) into the running application, once; the forms call it, so that a host need not.
// False when there is no application yet or the translations are not installed.
KXCOMMON_EXPORT bool loadGermanQtTexts();

} // namespace kx::ui
