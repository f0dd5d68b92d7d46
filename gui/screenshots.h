// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QString>

// Renders every form and frame on the demo data into Folder/NAME.png (NAME = the class name).
// Returns whether every picture was written; failures are printed.
bool renderScreenshots(const QString &folder);
